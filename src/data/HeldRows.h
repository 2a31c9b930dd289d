// The rows of a table that no key and no place tells apart: all of them are held, each known by the values
// that it was read with. Such tables are small.
#pragma once

#include <QHash>

#include "Connection.h"
#include "RowKeys.h"

namespace data {

class HeldRows {
public:
    // The rows as they are read now. Those that were here, by their values, keep the number that they are
    // known by; `inOrder`: the server has put them in order, else they stay in the one in which they were
    // read first. The numbers of all, in row order.
    RowKeys take(const QList<QVariantList>& rows, const RowKeys& before, bool inOrder);
    const QVariantList& values(qlonglong number) const;
    // A further row; its number.
    qlonglong add(const QVariantList& values);
    void replace(qlonglong number, const QVariantList& values) { m_rows[number] = values; }
    void remove(qlonglong number) { m_rows.remove(number); }

private:
    QHash<qlonglong, QVariantList> m_rows;
    qlonglong m_next = 1;
};

// The condition that a row holds those values. Bytes are left out: a server does not compare them.
QString holdsValues(const QList<ColumnInfo>& columns, const QVariantList& values);

}  // namespace data
