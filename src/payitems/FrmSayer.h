// Performance pay: its kinds and their tax.
#pragma once

#include "PageDefinition.h"

namespace payitems {

const definition::PageDefinition& frmSayer();

}  // namespace payitems
