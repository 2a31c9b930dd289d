// Overtime: its kinds, their hours and coefficients, and the salary items that an hour is reckoned from.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmEzaf;

namespace payitems {

const definition::PageDefinition& frmEzaf();

}  // namespace payitems
