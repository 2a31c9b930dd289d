// The result set a statement stands on, as columns and rows of data::Connection.
#pragma once

#include <vector>

#include "Connection.h"
#include "Handles.h"

namespace odbc {

// Columns of the current result set; empty when the statement gave a count instead.
QList<data::ColumnInfo> describe(const Handle& statement);

// The current row, read whole: a driver need not allow columns out of their order.
class Row : public data::RowView {
public:
    explicit Row(const QList<data::ColumnInfo>& columns);

    void read(const Handle& statement);

    QVariant value(int column) const override;
    bool isNull(int column) const override;
    QByteArrayView text(int column) const override;

private:
    const QList<data::ColumnInfo>& m_columns;
    QVariantList m_values;
    // Filled on demand; a row is more often read by value.
    mutable std::vector<QByteArray> m_texts;
};

}  // namespace odbc
