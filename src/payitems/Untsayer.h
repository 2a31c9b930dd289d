// Performance pay: its kinds and their tax.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmSayer;

namespace payitems {

const definition::PageDefinition& frmSayer();

}  // namespace payitems
