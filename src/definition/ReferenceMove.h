// What refers to rows follows them: the statements, and the same for a row that is being edited.
#pragma once

#include <QHash>
#include <QStringList>

#include "Connection.h"
#include "References.h"
#include "Renumbering.h"

namespace definition {

// The columns of tables, in lower case, with the bytes that each holds; by the table's name in lower case.
using TableColumns = QHash<QString, QHash<QString, int>>;

// A table whose rows hold references of one kind: the stored one, or an open page's copy of it.
struct Holders {
    const Reference* reference = nullptr;
    QString table;
    QString condition;  // which rows of it, as " And …"; empty for all
    bool isCopy = false;
};

// Those that have codes, names of columns or marks in columns: at most three statements, each of which
// reads what stood there before it wrote. A target column that the table lacks is left out.
QStringList moveStatements(const Holders& holders, const Renumbering& renumbering,
                           const TableColumns& columns);

// Whether a row of the holders has something of a row whose code or place changed, as a condition; empty
// where none can.
QString holdsChanged(const Holders& holders, const Renumbering& renumbering, const TableColumns& columns);

// Whether a row of the holders will be another one when it has followed, as a condition; empty where none
// will.
QString changesRow(const Holders& holders, const Renumbering& renumbering, const TableColumns& columns);

// The same for the values of a row in edit.
void followInRow(const Reference& reference, const Renumbering& renumbering,
                 const QList<data::ColumnInfo>& columns, QVariantList& row);

// The literal that a record holds of the row with that code.
QString heldLiteral(const Reference& reference, const QVariant& code);

}  // namespace definition
