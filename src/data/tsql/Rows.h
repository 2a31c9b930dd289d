// The row that a stepping statement stands on, read by the declared types.
#pragma once

#include <sqlite3.h>

#include <vector>

#include "Connection.h"
#include "Type.h"

namespace tsql {

class StatementRow : public data::RowView {
public:
    StatementRow(sqlite3_stmt* statement, const std::vector<Type>& types)
        : m_statement(statement), m_types(types) {}

    QVariant value(int column) const override;
    bool isNull(int column) const override { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }
    QByteArrayView text(int column) const override;

private:
    double real(int column) const;

    sqlite3_stmt* m_statement;
    const std::vector<Type>& m_types;
    mutable std::vector<QByteArray> m_numbers;  // texts of real columns
};

}  // namespace tsql
