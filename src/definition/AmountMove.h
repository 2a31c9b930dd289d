// The employees' amounts follow their items' codes: what stood in "code_" + old goes to "code_" + new.
#pragma once

#include <QList>

#include "HostContext.h"
#include "PageDefinition.h"

namespace definition {

// One item of a confirmed page.
struct ItemCode {
    qint64 now = 0;
    qint64 before = 0;  // 0 for an item that is new
};

// The column that holds the amounts of an item.
QString amountColumn(const AmountTable& amounts, qint64 code);

// Moves the month's amounts of every employee, all reading what stood there before any of them moved;
// a new item's column is added where the table lacks it and set to 0. An item whose old or new column
// is missing keeps its amounts where they are. Runs one statement that rewrites the month's rows once,
// whatever the number of items. Part of the caller's transaction.
void moveAmounts(data::HostDatabase& db, const AmountTable& amounts, const QString& month,
                 const QList<ItemCode>& items);

}  // namespace definition
