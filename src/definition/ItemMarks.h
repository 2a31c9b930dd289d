// Marks for the month's salary items: which of them a row of a page is reckoned from. They are kept in the
// columns CODMOZ_1, CODMOZ_2, … of the page's table, in the order of the items' codes.
#pragma once

#include "Dataset.h"
#include "HostContext.h"
#include "PageLayout.h"
#include "Questions.h"

namespace definition {

// Asks for the names of the month's salary items, in code order; `names` is there until they are answered.
void askItemNames(data::Questions& questions, const QString& month, QStringList& names);
QStringList itemNames(data::HostDatabase& db, const QString& month);

// The columns of their marks, as far as `rows` has them; all where it is closed.
QList<forms::PageColumn> itemMarks(const QStringList& items, const data::Dataset& rows);

// What a page with such marks knows of the month and of its table.
struct MarkedTable {
    QStringList items;
    QList<data::ColumnInfo> columns;
};

// Reads it, and adds the columns that the table lacks; all or nothing.
MarkedTable openMarkedTable(data::HostDatabase& db, const QString& table, const QString& month);

}  // namespace definition
