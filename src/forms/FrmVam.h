// The loans page: the kinds of loans.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmVam();

}  // namespace forms
