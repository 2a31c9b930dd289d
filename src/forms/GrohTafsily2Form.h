// The page of cost centre groups.
#pragma once

#include "PageLayout.h"

namespace forms {

// In its texts {L} stands for what the company calls its second detail level.
const PageLayout& grohTafsily2Form();

}  // namespace forms
