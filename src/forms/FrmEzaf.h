// The overtime page.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmEzaf();

}  // namespace forms
