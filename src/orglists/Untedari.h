// The nine administrative lists that employees' records refer to by code. One page edits them all, the
// one at a time that its tab's combo names.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmEdari;

namespace orglists {

const definition::PageDefinition& frmEdari();

}  // namespace orglists
