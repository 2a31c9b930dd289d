// Coupons and groceries: what married and single employees get.
#pragma once

#include "PageDefinition.h"

extern "C" definition::DefinitionPage* _FrmBon;

namespace payitems {

const definition::PageDefinition& frmBon();

}  // namespace payitems
