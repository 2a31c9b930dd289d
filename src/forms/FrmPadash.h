// The bonus page, and its pick list of earlier debts.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmPadash();

}  // namespace forms
