// The insurance schemes of a month: whose shares in percent, which ceiling, and what the files for the
// social security organisation are called. An employee's code_biemh is the code of the scheme less one.
#pragma once

#include "DefinitionPage.h"

namespace taxins {

definition::DefinitionPage* frmbimeh(BaseWindow& window, definition::DefinitionPage** variable,
                                     QWidget* parent);

}  // namespace taxins
