// What the pages of the organisation's lists hold. In their texts {L} stands for what the company calls
// its second detail level.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmEdari();
// The job positions' columns behind the title: job code, and the mark of arduous work.
const QList<PageColumn>& sematColumns();
const PageLayout& grohTafsily2Form();
const PageLayout& marakezForm();

}  // namespace forms
