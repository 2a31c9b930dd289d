// The page of purchased leave.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmKharid();

}  // namespace forms
