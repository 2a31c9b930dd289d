// The declared types of columns and the bound types of expressions.
#pragma once

#include <QString>

#include "Connection.h"

namespace tsql {

// In rising order of precedence: where two types meet, the lower is converted to the higher.
enum class Kind : quint8 {
    Null,
    Char,
    VarChar,
    NChar,
    NVarChar,
    Text,
    Bit,
    TinyInt,
    SmallInt,
    Int,
    BigInt,
    Money,
    Numeric,
    Real,
    Float,
    DateTime
};

// A declared type. Types are equal when all of it is.
struct Type {
    Kind kind = Kind::Null;
    quint8 precision = 0, scale = 0;  // of a numeric
    qint32 length = 0;                // characters of a text, 0 where there is no limit

    bool operator==(const Type&) const = default;
    bool isInteger() const { return kind >= Kind::Bit && kind <= Kind::BigInt; }
    bool isNumber() const { return kind >= Kind::Bit && kind <= Kind::Float; }
    bool isText() const { return kind >= Kind::Char && kind <= Kind::Text; }
    bool isPadded() const { return kind == Kind::Char || kind == Kind::NChar; }
};

// The types that most expressions have.
inline Type integerType() {
    return {Kind::Int};
}
// A varchar of that many characters; 0 for no limit.
inline Type textType(qsizetype length) {
    return {Kind::VarChar, 0, 0, qint32(length)};
}

// The most characters of a text that is not declared (max).
inline int longestText(const Type& type) {
    return type.kind == Kind::NChar || type.kind == Kind::NVarChar ? 4000 : 8000;
}

// "int", "varchar"; what messages and declarations say.
QString kindName(Kind kind);
// "varchar(8)", as SQLite keeps a column's declaration; "varchar(0)" has no limit.
QString declaration(const Type& type);
// The type of a name with its two optional numbers (−1 where absent; length 0 for "max"); Kind::Null
// where there is no such type.
Type typeNamed(QStringView name, int first, int second);
// The same from a declaration.
Type typeDeclared(const QString& text);
// Bytes of a column, as Col_length tells.
int storedBytes(const Type& type);
// The type that two operands meet in.
Type commonType(const Type& left, const Type& right);
// What a result says of a column of that type.
data::ColumnType columnType(const Type& type);

// A type as one number, for the conversion functions inside SQLite.
inline qint64 packed(const Type& type) {
    return qint64(type.kind) | qint64(type.precision) << 8 | qint64(type.scale) << 16 |
           qint64(type.length) << 24;
}
inline Type unpacked(qint64 number) {
    return {Kind(number & 0xff), quint8(number >> 8), quint8(number >> 16), qint32(number >> 24)};
}

}  // namespace tsql
