// The page of cost centres.
#pragma once

#include "PageLayout.h"

namespace forms {

// In its texts {L} stands for what the company calls its second detail level.
const PageLayout& marakezForm();

}  // namespace forms
