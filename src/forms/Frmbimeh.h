// The insurance page: the month's insurance schemes.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmbimeh();

}  // namespace forms
