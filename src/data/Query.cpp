#include "Query.h"

#include <QLocale>

#include "Errors.h"

namespace data {

void Query::close() {
    m_result = {};
    m_row = 0;
    m_active = false;
}

void Query::setSql(const QString& sql) {
    close();
    m_sql = sql;
}

void Query::open() {
    close();
    m_result = m_connection->execute(m_sql);
    m_active = true;
}

qint64 Query::exec() {
    close();
    return m_connection->execute(m_sql).affected;
}

QVariant Query::at(int column) const {
    if (eof() || column < 0 || column >= m_result.columns.size())
        return {};
    return m_result.rows[m_row][column];
}

QString Query::text(int column) const {
    return valueText(at(column));
}

QString Query::text(const QString& column) const {
    return text(m_result.indexOf(column));
}

qint64 Query::integer(int column) const {
    return static_cast<qint64>(text(column).trimmed().toDouble());
}

qint64 Query::integer(const QString& column) const {
    return integer(m_result.indexOf(column));
}

QString valueText(const QVariant& value) {
    if (!value.isValid() || value.isNull())
        return {};
    if (value.metaType().id() == QMetaType::Double)
        return QString::number(value.toDouble(), 'f', QLocale::FloatingPointShortest);
    return value.toString();
}

}  // namespace data
