// Purchase of leave: which salary items count for it, and how many days are paid or carried on.
#pragma once

#include "PageDefinition.h"

namespace payitems {

const definition::PageDefinition& frmKharid();

}  // namespace payitems
