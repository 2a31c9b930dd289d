// Absence: its kinds, and what each takes away from which salary items.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmGheybat;

namespace payitems {

const definition::PageDefinition& frmGheybat();

}  // namespace payitems
