// Life insurance: the shares of employer and employee.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmBomr;

namespace payitems {

const definition::PageDefinition& frmBomr();

}  // namespace payitems
