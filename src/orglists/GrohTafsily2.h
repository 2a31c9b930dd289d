// Cost-centre groups: each group's code is the front of its centres' codes.
#pragma once

#include "DefinitionPage.h"

namespace orglists {

definition::DefinitionPage* grohTafsily2Form(BaseWindow& window, definition::DefinitionPage** variable,
                                             QWidget* parent);

}  // namespace orglists
