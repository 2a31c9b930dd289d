// Cost-centre groups: each group's code is the front of its centres' codes.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _GrohTafsily2Form;

namespace orglists {

const definition::PageDefinition& grohTafsily2Form();

}  // namespace orglists
