// The tax page: the brackets of the salary tax.
#pragma once

#include "PageLayout.h"

namespace forms {

// The button that empties the table.
inline const QString kDeleteTaxTable = QStringLiteral("BitBtn2");

const PageLayout& frmTax();

}  // namespace forms
