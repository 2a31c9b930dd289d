// Purchase of service: which salary items count for it, and for how many days a year.
#pragma once

#include "PageDefinition.h"

namespace payitems {

const definition::PageDefinition& frmKhedmat();

}  // namespace payitems
