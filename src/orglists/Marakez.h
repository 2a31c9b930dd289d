// Cost centres: the ledger's second detail level, with what the insurance report needs of each.
#pragma once

#include "DefinitionPage.h"

namespace orglists {

definition::DefinitionPage* marakezForm(BaseWindow& window, definition::DefinitionPage** variable,
                                        QWidget* parent);

}  // namespace orglists
