// The absence page.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmGheybat();

}  // namespace forms
