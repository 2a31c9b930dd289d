// What the pages of coefficients have in common: up to 19 kinds of one variable pay, edited in a work
// copy, with a mark for each salary item that counts for them and amounts in the monthly table Paytraf.
#pragma once

#include "PageDefinition.h"

namespace payitems {

definition::PageDefinition coefficientPage(const forms::PageLayout& layout, const QString& table,
                                           const QString& pageKey, const QString& reportTitle);

}  // namespace payitems
