// Marks for the month's salary items: which of them a row of a page is reckoned from. They are kept in the
// columns CODMOZ_1, CODMOZ_2, … of the page's table, in the order of the items' codes.
#pragma once

#include "Dataset.h"
#include "HostContext.h"
#include "PageLayout.h"

namespace definition {

// The names of the month's salary items, in code order.
QStringList itemNames(data::HostDatabase& db, const QString& month);

// The columns of their marks, as far as `rows` has them; all where it is closed.
QList<forms::PageColumn> itemMarks(const QStringList& items, const data::Dataset& rows);

// Adds the columns that the table lacks for that many items; all or nothing.
void addItemMarks(data::HostDatabase& db, const QString& table, qsizetype items);

}  // namespace definition
