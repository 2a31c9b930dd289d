// Shift work: its kinds, their hours and coefficients.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmNobat;

namespace payitems {

const definition::PageDefinition& frmNobat();

}  // namespace payitems
