// The brackets of the salary tax. Each row carries the tax on all income up to its upper bound, which
// the page works out as the operator types. Every row is stored when it is left; the table has the
// order in which the rows were stored.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmTax;

namespace taxins {

const definition::PageDefinition& frmTax();

}  // namespace taxins
