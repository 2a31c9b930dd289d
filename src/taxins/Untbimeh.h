// The insurance schemes of a month: whose shares in percent, which ceiling, and what the files for the
// social security organisation are called. An employee's code_biemh is the code of the scheme less one.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _Frmbimeh;

namespace taxins {

const definition::PageDefinition& frmbimeh();

}  // namespace taxins
