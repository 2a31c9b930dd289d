// What a record of an outgoing file will look like, as its layout stands on the screen.
#pragma once

#include "RecordLayout.h"
#include "SuiteHost.h"

namespace layouts {

// "3 نكته در ساختار فايل"; empty where there is none.
QString recordAdvice(const data::Dataset& rows);

// Shows the record of the layout `rows`, with the bytes of it where the file is a DBF.
void previewRecord(const SuiteHost& host, const data::Dataset& rows, const QString& fileName);

}  // namespace layouts
