// The nine administrative lists that employees' records refer to by code. One page edits them all, the
// one at a time that its tab's combo names.
#pragma once

#include "DefinitionPage.h"

namespace orglists {

definition::DefinitionPage* frmEdari(BaseWindow& window, definition::DefinitionPage** variable,
                                     QWidget* parent);

}  // namespace orglists
