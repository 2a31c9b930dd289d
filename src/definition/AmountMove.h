// The employees' amounts follow their items' codes: what stood in "code_" + old goes to "code_" + new.
#pragma once

#include "HostContext.h"
#include "Renumbering.h"

namespace definition {

// The monthly table whose columns `prefix` + n hold every employee's amount of item n.
struct AmountTable {
    QString name;
    // Name under which Add_PayItem_Columns knows it; empty where each new item's column is added alone.
    QString upgradeName = {};
    QString prefix = QStringLiteral("code_");
};

// The column that holds the amounts of an item.
QString amountColumn(const AmountTable& amounts, qint64 code);

// Moves the month's amounts of every employee, all reading what stood there before any of them moved;
// a new item's column is added where the table lacks it and set to 0. Of two items with one code before,
// the first has the amounts and the other starts at 0. An item whose old or new column is missing keeps
// its amounts where they are. Runs one statement that rewrites the month's rows once, whatever the number
// of items, and none where nothing moves. Part of the caller's transaction.
void moveAmounts(data::HostDatabase& db, const AmountTable& amounts, const QString& month,
                 const QList<ItemCode>& items);

}  // namespace definition
