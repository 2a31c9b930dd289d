// A statement and the rows it gave, read forward. The counterpart of a scratch query component.
#pragma once

#include "Connection.h"

namespace data {

class Query {
public:
    Query() = default;
    explicit Query(Connection* connection) : m_connection(connection) {}

    Connection* connection() const { return m_connection; }
    void setConnection(Connection* connection) { m_connection = connection; }

    void close();
    // Replaces the statement text; closes what was open.
    void setSql(const QString& sql);
    // Runs the text and stands on the first row.
    void open();
    // Runs the text; rows, if any, are dropped. Returns the number of rows touched.
    qint64 exec();

    bool active() const { return m_active; }
    bool isEmpty() const { return m_result.rows.isEmpty(); }
    bool eof() const { return m_row >= m_result.rows.size(); }
    void next() { ++m_row; }

    // Of the current row; NULL, or no row at all, reads as empty text and 0.
    QString text(const QString& column) const;
    QString text(int column) const;
    qint64 integer(const QString& column) const;
    qint64 integer(int column) const;

private:
    QVariant at(int column) const;

    Connection* m_connection = nullptr;
    QString m_sql;
    ResultSet m_result;
    qsizetype m_row = 0;
    bool m_active = false;
};

// A value as the suite writes numbers in texts: shortest form, "." as the decimal point whatever the
// locale; NULL is empty.
QString valueText(const QVariant& value);

}  // namespace data
