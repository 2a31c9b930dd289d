// The page of non-continuous benefits.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmPaykar();

}  // namespace forms
