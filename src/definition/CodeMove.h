// Records that refer to rows by their codes follow them when the codes move.
#pragma once

#include "AmountMove.h"

namespace definition {

// Puts into the column, wherever it holds an item's code before, the code that it has now: every record
// once and in one statement, so that no order of moves can merge two items' records. Of several items
// with one code before, the first is followed. New items and those that stay move nothing. `condition`
// limits the records further, as " And …". Part of the caller's transaction.
void moveCodes(data::HostDatabase& db, const QString& table, const QString& column,
               const QList<ItemCode>& items, const QString& condition = {});

}  // namespace definition
