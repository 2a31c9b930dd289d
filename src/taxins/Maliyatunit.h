// The tax authority's code lists, one at a time: the one chosen in the window's combo. Every showing
// brings all lists up to the published ones.
#pragma once

#include "DefinitionPage.h"

namespace taxins {

definition::DefinitionPage* frmMaliyat(BaseWindow& window, definition::DefinitionPage** variable,
                                       QWidget* parent);

}  // namespace taxins
