#include "Rows.h"

#include <charconv>
#include <cmath>

namespace tsql {

// Exact fractions are kept as reals; their noise beyond the declared digits is not shown.
double StatementRow::real(int column) const {
    const double number = sqlite3_column_double(m_statement, column);
    const Type& type = m_types[size_t(column)];
    const bool money = type.kind == Kind::Money;
    if (!money && (type.kind != Kind::Numeric || type.scale > 15))
        return number;
    const double factor = std::pow(10.0, money ? 4 : type.scale);
    return std::fabs(number * factor) < 9e15 ? std::round(number * factor) / factor : number;
}

QVariant StatementRow::value(int column) const {
    if (isNull(column))
        return {};
    switch (columnType(m_types[size_t(column)])) {
        case data::ColumnType::Integer:
            return qlonglong(sqlite3_column_int64(m_statement, column));
        case data::ColumnType::Real:
            return real(column);
        default:
            break;
    }
    const auto* characters = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return QString::fromUtf8(characters, sqlite3_column_bytes(m_statement, column));
}

QByteArrayView StatementRow::text(int column) const {
    if (columnType(m_types[size_t(column)]) == data::ColumnType::Real && !isNull(column)) {
        if (m_numbers.empty())
            m_numbers.resize(m_types.size());
        char buffer[400];
        const auto [end, error] =
            std::to_chars(buffer, buffer + sizeof buffer, real(column), std::chars_format::fixed);
        m_numbers[size_t(column)] = QByteArray(buffer, error == std::errc() ? end - buffer : 0);
        return m_numbers[size_t(column)];
    }
    const auto* characters = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return {characters, qsizetype(sqlite3_column_bytes(m_statement, column))};
}

}  // namespace tsql
