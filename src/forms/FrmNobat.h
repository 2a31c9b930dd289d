// The shift work page.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmNobat();

}  // namespace forms
