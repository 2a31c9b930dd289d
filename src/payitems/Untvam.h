// Loan kinds: how the instalments of each kind are deducted, shared between employee and employer, taxed
// and posted. The employees' loans stand in the table `Vam` under their kinds' codes.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmVam;

namespace payitems {

const definition::PageDefinition& frmVam();

}  // namespace payitems
