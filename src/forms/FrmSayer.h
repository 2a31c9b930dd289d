// The performance pay page.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmSayer();

}  // namespace forms
