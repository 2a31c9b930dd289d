// The tax authority's code lists, one at a time: the one chosen in the window's combo. Every showing
// brings all lists up to the published ones.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmMaliyat;

namespace taxins {

const definition::PageDefinition& frmMaliyat();

}  // namespace taxins
