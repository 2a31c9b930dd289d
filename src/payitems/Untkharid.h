// Purchase of leave: which salary items count for it, and how many days are paid or carried on.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmKharid;

namespace payitems {

const definition::PageDefinition& frmKharid();

}  // namespace payitems
