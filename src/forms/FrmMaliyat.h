// The tax information page: one of the tax authority's code lists.
#pragma once

#include "PageLayout.h"

namespace forms {

// Its code column; the title column's words follow the list.
const PageLayout& frmMaliyat();
PageColumn taxListTitle(const QString& title, const QString& hint);

}  // namespace forms
