// The salary and benefit items page.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& formpay();

}  // namespace forms
