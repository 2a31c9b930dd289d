// The page of the administrative lists: one of them at a time.
#pragma once

#include "PageLayout.h"

namespace forms {

// Code and title; the title is worded for the chosen list.
const PageLayout& frmEdari();
// The job positions' columns behind the title: job code, and the mark of arduous work.
const QList<PageColumn>& sematColumns();

}  // namespace forms
