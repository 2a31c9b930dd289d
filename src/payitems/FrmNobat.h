// Shift work: its kinds, their hours and coefficients.
#pragma once

#include "PageDefinition.h"

namespace payitems {

const definition::PageDefinition& frmNobat();

}  // namespace payitems
