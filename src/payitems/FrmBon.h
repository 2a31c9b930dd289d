// Coupons and groceries: what married and single employees get.
#pragma once

#include "PageDefinition.h"

namespace payitems {

const definition::PageDefinition& frmBon();

}  // namespace payitems
