// The employees' amounts follow their items' codes: what stood in "code_" + old goes to "code_" + new.
#pragma once

#include <QSet>
#include <QStringList>

#include "Renumbering.h"

namespace definition {

// The monthly table whose columns `prefix` + n hold every employee's amount of item n.
struct AmountTable {
    QString name;
    // Name under which payItemColumns knows it; empty where each new item's column is added alone.
    QString upgradeName = {};
    QString prefix = QStringLiteral("code_");
};

// Moves the month's amounts of every employee, all reading what stood there before any of them moved; a new
// item's column is added where the table lacks it and set to 0. Of two items with one code before, the first
// has the amounts and the other starts at 0. An item whose old or new column is missing keeps its amounts
// where they are.
struct AmountMove {
    // To be sent first and apart: a server looks at a whole text before it adds any column.
    QStringList newColumns;
    // Rewrites the month's rows once, whatever the number of items; empty where nothing moves.
    QString statement;
};

// `columns` are those that the table has, in lower case.
AmountMove amountMove(const AmountTable& amounts, const QString& month, const QList<ItemCode>& items,
                      QSet<QString> columns);

}  // namespace definition
