// Overtime: its kinds, their hours and coefficients, and the salary items that an hour is reckoned from.
#pragma once

#include "PageDefinition.h"

namespace payitems {

const definition::PageDefinition& frmEzaf();

}  // namespace payitems
