#include "Type.h"

#include "Name.h"

namespace tsql {
namespace {

struct NamedKind {
    QStringView name;
    Kind kind;
    int bytes;  // of a fixed size; 0 where the length tells
};

// The first name of a kind is the one that declarations and messages use.
constexpr NamedKind kKinds[] = {
    {u"char", Kind::Char, 0},         {u"varchar", Kind::VarChar, 0},   {u"nchar", Kind::NChar, 0},
    {u"nvarchar", Kind::NVarChar, 0}, {u"text", Kind::Text, 16},        {u"bit", Kind::Bit, 1},
    {u"tinyint", Kind::TinyInt, 1},   {u"smallint", Kind::SmallInt, 2}, {u"int", Kind::Int, 4},
    {u"bigint", Kind::BigInt, 8},     {u"money", Kind::Money, 8},       {u"numeric", Kind::Numeric, 0},
    {u"decimal", Kind::Numeric, 0},   {u"real", Kind::Real, 4},         {u"float", Kind::Float, 8},
    {u"datetime", Kind::DateTime, 8}, {u"integer", Kind::Int, 4},  // as SQLite declares a numbered column
};

constexpr qint32 kNumericPrecision = 18;

}  // namespace

QString kindName(Kind kind) {
    for (const NamedKind& named : kKinds)
        if (named.kind == kind)
            return named.name.toString();
    return QStringLiteral("NULL");
}

QString declaration(const Type& type) {
    if (type.kind == Kind::Numeric)
        return QStringLiteral("numeric(%1,%2)").arg(type.precision).arg(type.scale);
    if (type.kind == Kind::Text || type.isNumber() || type.kind == Kind::DateTime)
        return kindName(type.kind);
    return QStringLiteral("%1(%2)").arg(kindName(type.kind)).arg(type.length);
}

Type typeNamed(QStringView name, int first, int second) {
    for (const NamedKind& named : kKinds) {
        if (!sameName(named.name, name))
            continue;
        Type type{named.kind};
        if (type.kind == Kind::Numeric) {
            type.precision = quint8(first < 0 ? kNumericPrecision : first);
            type.scale = quint8(std::max(second, 0));
        } else if (type.kind == Kind::Float && first > 0 && first <= 24) {
            type.kind = Kind::Real;
        } else if (!type.isNumber() && type.kind != Kind::Text && type.kind != Kind::DateTime) {
            type.length = first < 0 ? 1 : first;
        }
        return type;
    }
    return {};
}

Type typeDeclared(const QString& text) {
    const qsizetype open = text.indexOf(u'(');
    if (open < 0)
        return typeNamed(text, -1, -1);
    const QStringList numbers = text.mid(open + 1).chopped(1).split(u',');
    return typeNamed(QStringView(text).first(open).trimmed(), numbers[0].toInt(),
                     numbers.size() > 1 ? numbers[1].toInt() : -1);
}

int storedBytes(const Type& type) {
    for (const NamedKind& named : kKinds)
        if (named.kind == type.kind && named.bytes > 0)
            return named.bytes;
    if (type.kind == Kind::Numeric)
        return type.precision < 10 ? 5 : type.precision < 20 ? 9 : type.precision < 29 ? 13 : 17;
    if (type.length == 0)
        return -1;
    return type.kind == Kind::NChar || type.kind == Kind::NVarChar ? 2 * type.length : type.length;
}

Type commonType(const Type& left, const Type& right) {
    Type result = left.kind >= right.kind ? left : right;
    const Type& other = left.kind >= right.kind ? right : left;
    if (result.isText() && result.kind != Kind::Text && other.isText()) {
        result.length = left.length == 0 || right.length == 0 ? 0 : std::max(left.length, right.length);
    } else if (result.kind == Kind::Numeric && other.isNumber()) {
        const int otherScale = other.kind == Kind::Numeric ? other.scale : 0;
        const int otherWhole = other.kind == Kind::Numeric ? other.precision - other.scale : 10;
        const int whole = std::max(result.precision - result.scale, otherWhole);
        result.scale = quint8(std::max<int>(result.scale, otherScale));
        result.precision = quint8(std::min(38, whole + result.scale));
    }
    return result;
}

data::ColumnType columnType(const Type& type) {
    if (type.isInteger())
        return data::ColumnType::Integer;
    if (type.isNumber())
        return data::ColumnType::Real;
    return type.kind == Kind::DateTime ? data::ColumnType::DateTime : data::ColumnType::Text;
}

}  // namespace tsql
