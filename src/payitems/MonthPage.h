// What the pages have in common that edit the month's rows of their table directly.
#pragma once

#include "PageDefinition.h"

namespace payitems {

definition::PageDefinition monthPage(const forms::PageLayout& layout, const QString& table,
                                     const QString& pageKey, const QString& reportTitle);

}  // namespace payitems
