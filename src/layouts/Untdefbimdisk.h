// The layouts of the insurance disk: the employer's file and the workers' file that the social security
// organisation receives every month.
#pragma once

#include "Form.h"
#include "SuiteHost.h"

extern "C" {
extern widgets::Form* _FrmDefBimDisk;
}

namespace layouts {

// Opens the layout of a file, named by its column on the insurance page in capitals: "BIMFILE1" is the
// employer's, any other the workers'.
void openInsuranceLayout(const SuiteHost& host, const QString& fileId, const QString& fileName);

}  // namespace layouts
