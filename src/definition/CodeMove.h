// Records that refer to rows by their codes follow them when the codes move.
#pragma once

#include <QList>
#include <QString>

namespace definition {

// The statement that puts the second of a pair of literals into the column wherever it holds the first:
// every record once, so that no order of moves can merge two rows' records. `condition` limits the records
// further, as " And …". Empty without pairs.
QString exchangeStatement(const QString& table, const QString& column,
                          const QList<std::pair<QString, QString>>& literals, const QString& condition = {});

}  // namespace definition
