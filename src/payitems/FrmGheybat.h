// Absence: its kinds, and what each takes away from which salary items.
#pragma once

#include "PageDefinition.h"

namespace payitems {

const definition::PageDefinition& frmGheybat();

}  // namespace payitems
