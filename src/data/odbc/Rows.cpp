#include "Rows.h"

#include "Query.h"

namespace odbc {

namespace {

data::ColumnType columnType(SQLSMALLINT type) {
    switch (type) {
        case SQL_BIT:
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return data::ColumnType::Integer;
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            return data::ColumnType::Real;
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIME:
        case SQL_TYPE_TIMESTAMP:
            return data::ColumnType::DateTime;
        case SQL_BINARY:
        case SQL_VARBINARY:
        case SQL_LONGVARBINARY:
            return data::ColumnType::Binary;
        default:
            return data::ColumnType::Text;
    }
}

template <typename Number>
QVariant number(const Handle& statement, SQLUSMALLINT column, SQLSMALLINT type) {
    Number value = 0;
    SQLLEN length = 0;
    statement.check(SQLGetData(statement.get(), column, type, &value, sizeof value, &length));
    return length == SQL_NULL_DATA ? QVariant() : QVariant::fromValue(value);
}

// Text and bytes come in pieces of unknown number. `terminator`: bytes that the driver adds to each.
bool pieces(const Handle& statement, SQLUSMALLINT column, SQLSMALLINT type, int terminator, QByteArray& all) {
    char piece[4096];
    SQLLEN left = 0;
    while (statement.check(SQLGetData(statement.get(), column, type, piece, sizeof piece, &left))) {
        if (left == SQL_NULL_DATA)
            return false;
        const SQLLEN room = static_cast<SQLLEN>(sizeof piece) - terminator;
        const bool more = left == SQL_NO_TOTAL || left > room;
        all.append(piece, more ? room : left);
        if (!more)
            break;
    }
    return true;
}

QVariant read(const Handle& statement, SQLUSMALLINT column, data::ColumnType type) {
    if (type == data::ColumnType::Integer)
        return number<qlonglong>(statement, column, SQL_C_SBIGINT);
    if (type == data::ColumnType::Real)
        return number<double>(statement, column, SQL_C_DOUBLE);
    QByteArray bytes;
    if (type == data::ColumnType::Binary)
        return pieces(statement, column, SQL_C_BINARY, 0, bytes) ? QVariant(bytes) : QVariant();
    if (!pieces(statement, column, SQL_C_WCHAR, sizeof(SQLWCHAR), bytes))
        return {};
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()),
                              bytes.size() / qsizetype(sizeof(char16_t)));
}

// Characters of the longest text that is not one without a limit.
constexpr SQLULEN kLongest = 8000;

data::ColumnInfo describeColumn(const Handle& statement, SQLUSMALLINT number) {
    SQLWCHAR name[256] = {};
    SQLSMALLINT nameLength = 0, type = 0, digits = 0, nullable = 0;
    SQLULEN size = 0;
    statement.check(SQLDescribeColW(statement.get(), number, name, std::size(name), &nameLength, &type, &size,
                                    &digits, &nullable));
    SQLLEN identity = SQL_FALSE;
    statement.check(SQLColAttributeW(statement.get(), number, SQL_DESC_AUTO_UNIQUE_VALUE, nullptr, 0, nullptr,
                                     &identity));
    data::ColumnInfo column;
    column.name = QString::fromUtf16(reinterpret_cast<const char16_t*>(name));
    column.type = columnType(type);
    if (column.type == data::ColumnType::Text)
        column.length = size > kLongest ? 0 : static_cast<int>(size);
    column.nullable = nullable != SQL_NO_NULLS;
    column.identity = identity == SQL_TRUE;
    return column;
}

}  // namespace

QList<data::ColumnInfo> describe(const Handle& statement) {
    SQLSMALLINT count = 0;
    statement.check(SQLNumResultCols(statement.get(), &count));
    QList<data::ColumnInfo> columns;
    for (SQLSMALLINT number = 1; number <= count; ++number)
        columns.append(describeColumn(statement, static_cast<SQLUSMALLINT>(number)));
    return columns;
}

Row::Row(const QList<data::ColumnInfo>& columns) : m_columns(columns), m_values(columns.size()) {}

void Row::read(const Handle& statement) {
    for (qsizetype i = 0; i < m_columns.size(); ++i)
        m_values[i] = odbc::read(statement, static_cast<SQLUSMALLINT>(i + 1), m_columns[i].type);
    m_texts.clear();
}

QVariant Row::value(int column) const {
    return m_values[column];
}

bool Row::isNull(int column) const {
    return !m_values[column].isValid();
}

QByteArrayView Row::text(int column) const {
    if (m_texts.empty())
        m_texts.resize(static_cast<size_t>(m_columns.size()));
    QByteArray& text = m_texts[static_cast<size_t>(column)];
    if (text.isEmpty())
        text = data::valueText(m_values[column]).toUtf8();
    return text;
}

}  // namespace odbc
