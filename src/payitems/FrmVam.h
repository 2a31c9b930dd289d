// Loan kinds: how the instalments of each kind are deducted, shared between employee and employer, taxed
// and posted. The employees' loans stand in the table `Vam` under their kinds' codes.
#pragma once

#include "DefinitionPage.h"

namespace payitems {

definition::DefinitionPage* frmVam(BaseWindow& window, definition::DefinitionPage** variable,
                                   QWidget* parent);

}  // namespace payitems
