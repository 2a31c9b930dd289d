// The banks through which salaries are paid, and the files that each of them receives. Employees' records
// refer to a bank by its code.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmBank;

namespace orglists {

const definition::PageDefinition& frmBank();

}  // namespace orglists
