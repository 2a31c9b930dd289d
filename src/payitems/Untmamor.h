// Mission: its kinds, paid by the day, by a coefficient or as a fixed amount.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmMamor;

namespace payitems {

const definition::PageDefinition& frmMamor();

}  // namespace payitems
