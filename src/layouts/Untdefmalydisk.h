// The layouts of the three files of the monthly tax report.
#pragma once

#include "Form.h"
#include "SuiteHost.h"

extern "C" {
extern widgets::Form* _FrmDefMalyDisk;
}

namespace layouts {

// Opens a layout by its table, "BCK_TAX1" to "BCK_TAX3", under a caption.
void openTaxLayout(const SuiteHost& host, const QString& table, const QString& caption);

// Makes one of the three tables where it is missing and seeds it where it is empty. Where all is there no
// row is sent.
void prepareTaxLayout(data::HostDatabase& db, const QString& table);

}  // namespace layouts
