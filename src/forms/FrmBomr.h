// The life insurance page.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmBomr();

}  // namespace forms
