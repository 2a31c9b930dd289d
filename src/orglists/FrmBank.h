// The banks through which salaries are paid, and the files that each of them receives. Employees' records
// refer to a bank by its code.
#pragma once

#include "DefinitionPage.h"

namespace orglists {

definition::DefinitionPage* frmBank(BaseWindow& window, definition::DefinitionPage** variable,
                                    QWidget* parent);

}  // namespace orglists
