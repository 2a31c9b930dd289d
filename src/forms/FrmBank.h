// The banks page.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmBank();

}  // namespace forms
