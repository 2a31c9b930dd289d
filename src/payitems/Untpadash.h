// Bonus: its kinds, their limits and tax, and the earlier debt that each settles, chosen among the
// month's deductions.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmPadash;

namespace payitems {

const definition::PageDefinition& frmPadash();

}  // namespace payitems
