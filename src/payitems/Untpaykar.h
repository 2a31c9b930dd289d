// Non-continuous benefits: items paid or deducted occasionally, each added to or taken from what an
// employee receives.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmPaykar;

namespace payitems {

const definition::PageDefinition& frmPaykar();

}  // namespace payitems
