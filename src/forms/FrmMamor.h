// The mission page.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmMamor();

}  // namespace forms
