// Purchase of service: which salary items count for it, and for how many days a year.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmKhedmat;

namespace payitems {

const definition::PageDefinition& frmKhedmat();

}  // namespace payitems
