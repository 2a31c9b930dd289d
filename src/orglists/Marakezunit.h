// Cost centres: the ledger's second detail level, with what the insurance report needs of each.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _MarakezForm;

namespace orglists {

const definition::PageDefinition& marakezForm();

}  // namespace orglists
