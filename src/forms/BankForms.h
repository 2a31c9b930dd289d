// What the two pages hold whose rows have files for banks, each in the file of its name.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmVam();
const PageLayout& frmBank();

}  // namespace forms
