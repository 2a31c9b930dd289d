// The page of purchased service.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmKhedmat();

}  // namespace forms
