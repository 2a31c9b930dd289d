// Records that refer to rows by their codes follow them when the codes move.
#pragma once

#include <QMap>
#include <optional>

#include "AmountMove.h"

namespace definition {

// What becomes of codes in the records that hold them: by the code before, the one now; none where the
// record holds none from now on. Codes that stay as they are do not stand here.
using CodeChanges = QMap<qint64, std::optional<qint64>>;

// Those of rows that are numbered 1, 2, 3, … by their place from now on; `before` has their codes in that
// order, none where a row had none. Of rows with one code the first is followed. A code that was no row's
// stays no row's: whoever holds it keeps it where no row gets it, and else holds none.
CodeChanges numberedByPlace(const QList<std::optional<qint64>>& before);

// Makes the changes in the column, every record once and in one statement, so that no order of moves can
// merge two rows' records. `condition` limits the records further, as " And …". Part of the caller's
// transaction.
void changeCodes(data::HostDatabase& db, const QString& table, const QString& column,
                 const CodeChanges& changes, const QString& condition = {});

// The same for the items of a work copy, among which code 0 before is that of a new one: new items and
// those that stay move nothing. Of several items with one code before, the first is followed.
void moveCodes(data::HostDatabase& db, const QString& table, const QString& column,
               const QList<ItemCode>& items, const QString& condition = {});

}  // namespace definition
