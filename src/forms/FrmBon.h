// The page of coupons and groceries.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmBon();

}  // namespace forms
