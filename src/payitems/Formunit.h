// Salary and benefit items: what every employee is paid from month to month, item by item, and how
// tax, insurance, leave and payslip treat each item. The amounts stand in the payroll table's column
// "code_" + item code.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _Formpay;

namespace payitems {

const definition::PageDefinition& formpay();

}  // namespace payitems
