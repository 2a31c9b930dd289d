// Rows of a list that are numbered by their place, and the records that hold their codes.
#pragma once

#include <QList>
#include <QMap>
#include <optional>

#include "HostContext.h"

namespace definition {

// What becomes of codes in the records that hold them: by the code before, the one now; none where the
// record holds none from now on. Codes that stay as they are do not stand here.
using CodeChanges = QMap<qint64, std::optional<qint64>>;

// Those of rows that are 1, 2, 3, … from now on; `before` has their codes in that order, none where a row
// had none. Of rows with one code the first is followed. Whoever holds a code that was no row's is given
// to none: he holds none where a row gets that code.
CodeChanges numberedByPlace(const QList<std::optional<qint64>>& before);

// Makes the changes in the column, every record once and in one statement, so that no order of moves can
// merge two rows' records. Part of the caller's transaction.
void changeCodes(data::HostDatabase& db, const QString& table, const QString& column,
                 const CodeChanges& changes);

}  // namespace definition
