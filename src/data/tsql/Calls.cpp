// The server's built-in functions.
#include "Binder.h"
#include "Collation.h"

namespace tsql {
namespace {

enum class Result : quint8 { Integer, SameText, LongText, Letter, SameNumber };
enum class Argument : quint8 { None, Text, Integer, Number };

// A function that is one of SQLite's, or one of ours, with converted arguments.
struct SimpleFunction {
    QStringView name;
    const char* before;
    const char* after;
    Result result;
    quint8 least;  // arguments
    Argument arguments[4];
};

constexpr SimpleFunction kSimple[] = {
    {u"len", "length(rtrim(", "))", Result::Integer, 1, {Argument::Text}},
    {u"ltrim", "ltrim(", ")", Result::SameText, 1, {Argument::Text}},
    {u"rtrim", "rtrim(", ")", Result::SameText, 1, {Argument::Text}},
    {u"trim", "trim(", ")", Result::SameText, 1, {Argument::Text}},
    {u"upper", "upper(", ")", Result::SameText, 1, {Argument::Text}},
    {u"lower", "lower(", ")", Result::SameText, 1, {Argument::Text}},
    {u"substring",
     "part_of_text(",
     ")",
     Result::SameText,
     3,
     {Argument::Text, Argument::Integer, Argument::Integer}},
    {u"left", "left_of_text(", ")", Result::SameText, 2, {Argument::Text, Argument::Integer}},
    {u"right", "right_of_text(", ")", Result::SameText, 2, {Argument::Text, Argument::Integer}},
    {u"replace", "replace_text(", ")", Result::LongText, 3, {Argument::Text, Argument::Text, Argument::Text}},
    {u"charindex",
     "find_text(",
     ")",
     Result::Integer,
     2,
     {Argument::Text, Argument::Text, Argument::Integer}},
    {u"replicate", "repeat_text(", ")", Result::LongText, 2, {Argument::Text, Argument::Integer}},
    {u"space", "repeat_text(' ', ", ")", Result::LongText, 1, {Argument::Integer}},
    {u"char", "character_of(", ")", Result::Letter, 1, {Argument::Integer}},
    {u"ascii", "code_of(", ")", Result::Integer, 1, {Argument::Text}},
    {u"abs", "abs(", ")", Result::SameNumber, 1, {Argument::Number}},
    {u"round", "round_number(", ")", Result::SameNumber, 2, {Argument::Number, Argument::Integer}},
};

constexpr QStringView kAggregates[] = {u"count", u"sum", u"min", u"max", u"avg"};

constexpr char16_t kArgumentCount[] = u"The %1 function requires %2 argument(s).";

}  // namespace

class CallBinder {
public:
    CallBinder(Binder& binder, const Expression& call, Scope& scope)
        : m_binder(binder),
          m_call(call),
          m_arguments(call.arguments),
          m_scope(scope),
          m_start(binder.sql.size()) {}

    Bound bind() {
        if (isAggregate(m_call))
            return aggregate();
        if (m_call.distinct)
            refuse(u"Incorrect syntax near the keyword '%1'.", QStringView(u"distinct"));
        for (const SimpleFunction& function : kSimple)
            if (named(function.name))
                return simple(function);
        if (named(u"isnull"))
            return isNull();
        if (named(u"coalesce"))
            return coalesce();
        if (named(u"nullif"))
            return nullIf();
        if (named(u"str"))
            return numberText();
        if (named(u"col_length"))
            return columnLength();
        refuse(u"'%1' is not a recognized built-in function name.", m_call.name.text);
    }

private:
    bool named(QStringView name) const { return sameName(m_call.name.text, name); }

    void needs(size_t count) const {
        if (m_arguments.size() != count)
            refuse(kArgumentCount, m_call.name.text, QString::number(count));
    }

    Bound argument(const Expression& value, Argument kind) {
        const size_t start = m_binder.sql.size();
        Bound bound = m_binder.expression(value, m_scope);
        if (kind == Argument::Text && !bound.type.isText())
            m_binder.coerce(start, bound, textType(8000), Purpose::Explicit);
        else if (kind == Argument::Integer && !bound.type.isInteger())
            m_binder.coerce(start, bound, integerType(), Purpose::Assignment);
        else if (kind == Argument::Number && !bound.type.isNumber())
            m_binder.coerce(start, bound, {Kind::Float}, Purpose::Assignment);
        return bound;
    }

    Bound simple(const SimpleFunction& function) {
        size_t most = 0;
        while (most < 4 && function.arguments[most] != Argument::None)
            ++most;
        if (m_arguments.size() < function.least || m_arguments.size() > most)
            needs(function.least);
        m_binder.sql += function.before;
        Bound first;
        bool nullable = false;
        for (size_t i = 0; i < m_arguments.size(); ++i) {
            if (i > 0)
                m_binder.sql += ", ";
            const Bound bound = argument(*m_arguments[i], function.arguments[i]);
            nullable = nullable || bound.nullable;
            if (i == 0)
                first = bound;
        }
        const Type type = resultType(function.result, first.type);
        // A text that grows ends where its type ends.
        if (function.result == Result::LongText)
            m_binder.sql += ", " + std::to_string(type.length);
        m_binder.sql += function.after;
        return {type, nullable, false, false, nullptr};
    }

    static Type resultType(Result result, const Type& first) {
        switch (result) {
            case Result::Integer:
                return integerType();
            case Result::Letter:
                return textType(1);
            case Result::SameNumber:
                return first;
            case Result::LongText:
            case Result::SameText:
                break;
        }
        Type type = first.isText() ? first : textType(1);
        if (type.isPadded())
            type.kind = type.kind == Kind::Char ? Kind::VarChar : Kind::NVarChar;
        if (result == Result::LongText && (type.length > 0 || !first.isText()))
            type.length = longestText(type);
        return type;
    }

    Bound aggregate() {
        needs(1);
        if (holdsAggregate(m_arguments))
            refuse(
                u"Cannot perform an aggregate function on an expression containing an aggregate or a "
                u"subquery.");
        const bool outer = m_scope.inAggregate;
        m_scope.inAggregate = true;
        std::string& sql = m_binder.sql;
        const QByteArray name = m_call.name.text.toLatin1().toLower();
        sql.append(name.constData(), size_t(name.size())).append(m_call.distinct ? "(DISTINCT " : "(");
        Bound bound;
        if (m_arguments[0]->kind == ExpressionKind::Star) {
            sql += '*';
        } else {
            const size_t start = sql.size();
            bound = m_binder.expression(*m_arguments[0], m_scope);
            m_binder.collate(start, bound);
        }
        sql += ')';
        m_scope.inAggregate = outer;
        bound.plainColumn = bound.identity = false;
        bound.literal = nullptr;
        bound.nullable = true;
        if (name == "count")
            return {integerType(), false, false, false, nullptr};
        if (name == "min" || name == "max")
            return bound;
        if (!bound.type.isNumber())
            refuse(u"Operand data type %1 is invalid for %2 operator.", kindName(bound.type.kind),
                   QString::fromLatin1(name));
        if (bound.type.isInteger()) {
            const bool big = bound.type.kind == Kind::BigInt;
            if (name == "avg")
                m_binder.wrap(m_start, "CAST(", " AS INTEGER)");
            else if (!big)
                m_binder.wrap(m_start, "within_integer(", ")");
            bound.type.kind = big ? Kind::BigInt : Kind::Int;
        } else if (bound.type.kind == Kind::Numeric) {
            bound.type.precision = 38;
            if (name == "avg")
                bound.type.scale = std::max<quint8>(bound.type.scale, 6);
        }
        return bound;
    }

    Bound isNull() {
        needs(2);
        m_binder.sql += "ifnull(";
        const Bound first = m_binder.expression(*m_arguments[0], m_scope);
        m_binder.sql += ", ";
        const size_t start = m_binder.sql.size();
        Bound second = m_binder.expression(*m_arguments[1], m_scope);
        if (first.type.kind != Kind::Null)
            m_binder.coerce(start, second, first.type, Purpose::Explicit);
        m_binder.sql += ')';
        return {second.type, first.nullable && second.nullable, false, false, nullptr};
    }

    Bound coalesce() {
        std::vector<Piece> pieces;
        Type type;
        bool nullable = true;
        m_binder.sql += "coalesce(";
        for (const Expression* value : m_arguments) {
            pieces.push_back(m_binder.piece(*value, m_scope));
            m_binder.sql += ", ";
            type = commonType(type, pieces.back().bound.type);
            nullable = nullable && pieces.back().bound.nullable;
        }
        for (Piece& piece : pieces)
            piece.to = type;
        m_binder.coerceAll(pieces);
        m_binder.sql += "NULL)";
        return {type, nullable, false, false, nullptr};
    }

    Bound nullIf() {
        needs(2);
        std::array<Piece, 2> sides;
        m_binder.sql += "nullif(";
        sides[0] = m_binder.collatedPiece(*m_arguments[0], m_scope);
        m_binder.sql += ", ";
        sides[1] = m_binder.piece(*m_arguments[1], m_scope);
        const Type type = sides[0].bound.type;
        Binder::meetInOneType(sides);
        if (sides[0].to == type) {
            m_binder.coerceAll(sides);
            m_binder.sql += ')';
        } else {
            const std::string written = m_binder.cut(m_start);
            const WrittenValue value = sides[0].in(written, m_start);
            m_binder.sql += "CASE WHEN ";
            m_binder.compareAgain(value, sides[1].in(written, m_start), u'=');
            m_binder.sql += " THEN NULL ELSE ";
            m_binder.sql.append(value.text).append(" END");
        }
        return {type, true, false, false, nullptr};
    }

    Bound numberText() {
        if (m_arguments.empty() || m_arguments.size() > 3)
            needs(3);
        static constexpr const char* kDefaults[] = {"", "10", "0"};
        m_binder.sql += "number_text(";
        for (size_t i = 0; i < 3; ++i) {
            m_binder.sql += i > 0 ? ", " : "";
            if (i < m_arguments.size())
                argument(*m_arguments[i], i == 0 ? Argument::Number : Argument::Integer);
            else
                m_binder.sql += kDefaults[i];
        }
        m_binder.sql += ')';
        return {textType(10), true, false, false, nullptr};
    }

    ObjectName objectNamed(QStringView text) const {
        const qsizetype dot = text.lastIndexOf(u'.');
        const auto bare = [](QStringView part) {
            return part.startsWith(u'[') && part.endsWith(u']') ? part.sliced(1).chopped(1) : part;
        };
        return {{}, Name(bare(text.sliced(dot + 1).trimmed()))};
    }

    // The catalogue's functions are answered now: a plan does not outlive a change of the catalogue.
    Bound columnLength() {
        needs(2);
        const Table* table = m_binder.catalogue().find(objectNamed(m_arguments[0]->name.text));
        const int place = table ? table->find(Name(objectNamed(m_arguments[1]->name.text).name)) : -1;
        m_binder.sql += place < 0 ? "NULL" : std::to_string(storedBytes(table->columns[size_t(place)].type));
        return {{Kind::SmallInt}, true, false, false, nullptr};
    }

    Binder& m_binder;
    const Expression& m_call;
    std::span<Expression*> m_arguments;
    Scope& m_scope;
    size_t m_start;
};

Bound Binder::call(const Expression& value, Scope& scope) {
    return CallBinder(*this, value, scope).bind();
}

bool holdsAggregate(std::span<Expression* const> expressions) {
    return std::any_of(expressions.begin(), expressions.end(), [](const Expression* expression) {
        return isAggregate(*expression) || holdsAggregate(expression->arguments);
    });
}

bool isAggregate(const Expression& expression) {
    if (expression.kind != ExpressionKind::Call)
        return false;
    for (QStringView name : kAggregates)
        if (sameName(expression.name.text, name))
            return true;
    return false;
}

}  // namespace tsql
