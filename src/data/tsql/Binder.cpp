#include "Binder.h"

#include "Collation.h"

namespace tsql {
namespace {

bool fits(const Type& from, const Type& to, Purpose purpose) {
    if (from == to || from.kind == Kind::Null)
        return true;
    if (to.isText()) {
        if (!from.isText() || to.isPadded())
            return false;
        return to.length == 0 || (from.length > 0 && from.length <= to.length);
    }
    if (to.kind == Kind::Bit)
        return false;
    if (to.isInteger())
        return from.isInteger() && from.kind <= to.kind;
    if (to.kind == Kind::Numeric)
        return purpose == Purpose::Explicit && from.isInteger();
    if (to.kind == Kind::Real)
        return false;
    if (to.isNumber())
        return from.isInteger() || (from.isNumber() && to.kind == Kind::Float);
    return to.isBinary() && from.isBinary();
}

void clash(const Type& from, const Type& to) {
    if (from.isBinary() != to.isBinary() && from.kind != Kind::Null &&
        (from.kind == Kind::Image || to.kind == Kind::Image || !(from.isText() || to.isText())) &&
        !(from.kind == Kind::VarBinary && to.isBinary()))
        refuse(u"Operand type clash: %1 is incompatible with %2", kindName(from.kind), kindName(to.kind));
}

// Sums and products of many operands stay flat.
bool chains(const Expression& left, const Expression& whole) {
    const auto sums = [](char16_t operation) { return operation == u'+' || operation == u'-'; };
    return left.kind == ExpressionKind::Arithmetic && ((sums(left.operation) && sums(whole.operation)) ||
                                                       (left.operation == u'*' && whole.operation == u'*'));
}

// A style says how moments and fractions are written; it means nothing to other values.
bool knowsStyle(const Type& from, const Type& to, int style) {
    constexpr int kWritten[] = {0, 8, 20, 21, 100, 101, 103, 104, 108, 111, 112, 120, 121, 126};
    constexpr int kRead[] = {0, 20, 21, 101, 111, 112, 120, 121, 126};
    const auto among = [style](const auto& styles) {
        return std::find(std::begin(styles), std::end(styles), style) != std::end(styles);
    };
    if (from.kind == Kind::DateTime && to.isText())
        return among(kWritten);
    if (from.isText() && to.kind == Kind::DateTime)
        return among(kRead);
    const bool fraction = from.isNumber() && !from.isInteger() && from.kind != Kind::Numeric;
    return style == 0 || !(fraction && to.isText());
}

// At most one row, whatever the tables hold.
bool isSingle(const Select& select) {
    if (select.unionWith)
        return false;
    if (select.from.empty() || (select.top && select.top->name.text == u"1"))
        return true;
    return select.groupBy.empty() && select.items.size() == 1 && select.items[0].value &&
           isAggregate(*select.items[0].value);
}

}  // namespace

int Source::find(const Name& column) const {
    if (table)
        return table->find(column);
    for (size_t i = 0; i < derived.size(); ++i)
        if (derived[i].hash == column.hash && sameName(derived[i].name, column.text))
            return int(i);
    return -1;
}

Bound Source::bound(const Column& column) const {
    return {column.type, column.nullable || optional, column.identity, table && !table->system, nullptr};
}

void Binder::wrap(size_t start, std::string_view before, std::string_view after) {
    sql.insert(start, before);
    sql += after;
}

void Binder::collate(size_t start, const Bound& bound) {
    if (!bound.type.isText() || bound.plainColumn)
        return;
    if (!bound.literal)
        wrap(start, "(", ")");
    sql += " COLLATE ";
    sql += kCollation;
}

// A literal that fits is converted here, so that nothing is left to do for the rows.
bool Binder::coerceLiteral(size_t start, const Bound& bound, const Type& to) {
    const Expression& literal = *bound.literal;
    if (to.isPadded() || to.isBinary() || to.kind == Kind::DateTime)
        return false;
    std::string characters;
    appendUtf8(characters, literal.name.text);
    try {
        Scalar value;
        if (literal.kind == ExpressionKind::Text)
            value = characters;
        else if (literal.kind == ExpressionKind::Integer && bound.type.kind == Kind::Int)
            value = qint64(literal.name.text.toLongLong());
        else if (literal.kind == ExpressionKind::Decimal || literal.kind == ExpressionKind::Float)
            value = literal.name.text.toDouble();
        else
            return false;
        value = convert(value, bound.type, to, Purpose::Assignment);
        if (const auto* number = std::get_if<qint64>(&value)) {
            sql.resize(start);
            sql += std::to_string(*number);
        } else if (const auto* real = std::get_if<double>(&value)) {
            char buffer[40];
            std::snprintf(buffer, sizeof buffer, "%.17g", *real);
            sql.resize(start);
            sql += buffer;
            // A real without a fraction would be an integer to SQLite.
            if (std::string_view(buffer).find_first_of(".e") == std::string_view::npos)
                sql += ".0";
        } else {
            sql.resize(start);
            appendText(sql, QString::fromStdString(std::get<std::string>(value)));
        }
        return true;
    } catch (const data::ServerError&) {
        return false;  // refused when the statement runs
    }
}

void Binder::coerce(size_t start, Bound& bound, const Type& to, Purpose purpose, int style) {
    clash(bound.type, to);
    const Type from = bound.type;
    bound.type = to;
    if (fits(from, to, purpose))
        return;
    bound.plainColumn = false;
    Bound literalBound = bound;
    literalBound.type = from;
    if (bound.literal && style == 0 && purpose == Purpose::Assignment &&
        coerceLiteral(start, literalBound, to)) {
        bound.literal = nullptr;
        return;
    }
    bound.literal = nullptr;
    std::string after = ", " + std::to_string(packed(from)) + ", " + std::to_string(packed(to));
    if (style != 0)
        after += ", " + std::to_string(style);
    after += ')';
    wrap(start, purpose == Purpose::Assignment ? "fit_value(" : "convert_value(", after);
}

Piece Binder::piece(const Expression& value, Scope& scope) {
    Piece result;
    result.start = sql.size();
    result.bound = expression(value, scope);
    result.end = sql.size();
    result.to = result.bound.type;
    return result;
}

Piece Binder::collatedPiece(const Expression& value, Scope& scope) {
    Piece result = piece(value, scope);
    collate(result.start, result.bound);
    result.end = sql.size();
    return result;
}

std::string Binder::cut(size_t start) {
    std::string written = sql.substr(start);
    sql.resize(start);
    return written;
}

void Binder::coerceAll(std::span<Piece> pieces) {
    const auto first = std::find_if(pieces.begin(), pieces.end(),
                                    [](const Piece& piece) { return piece.bound.type != piece.to; });
    if (first == pieces.end())
        return;
    size_t copied = first->start;
    const size_t offset = copied;
    const std::string written = cut(offset);
    for (auto piece = first; piece != pieces.end(); ++piece) {
        sql.append(written, copied - offset, piece->start - copied);
        const size_t at = sql.size();
        sql.append(written, piece->start - offset, piece->end - piece->start);
        copied = piece->end;
        coerce(at, piece->bound, piece->to, Purpose::Assignment);
        piece->start = at;
        piece->end = sql.size();
    }
    sql.append(written, copied - offset);
}

void Binder::assigned(const Expression& value, const Column& target, Scope& scope) {
    if (value.kind == ExpressionKind::Default) {
        sql += target.defaultSql.empty() ? "NULL" : target.defaultSql;
        return;
    }
    const size_t start = sql.size();
    Bound bound = expression(value, scope);
    coerce(start, bound, target.type, Purpose::Assignment);
}

// --- names -------------------------------------------------------------------------------------------

const Source& Binder::sourceNamed(const Name& qualifier, const Name& column, const Scope& scope) {
    for (const Scope* level = &scope; level; level = level->outer)
        for (const Source& source : level->sources)
            if (source.alias == qualifier)
                return source;
    refuse(kUnbound, qualifier.text, column.text);
}

void Binder::checkGrouped(const Source& source, const Column& column, const Scope& scope) const {
    if (scope.grouped && !scope.inAggregate)
        refuse(
            u"Column '%1.%2' is invalid in the select list because it is not contained in either an "
            u"aggregate "
            u"function or the GROUP BY clause.",
            source.alias.text, column.name);
}

Bound Binder::column(const Expression& expression, const Scope& scope) {
    const Source* found = nullptr;
    const Scope* level = &scope;
    int place = -1;
    if (!expression.qualifier.isEmpty()) {
        found = &sourceNamed(expression.qualifier, expression.name, scope);
        place = found->find(expression.name);
        while (level != nullptr && (level->sources.empty() || found < level->sources.data() ||
                                    found >= level->sources.data() + level->sources.size()))
            level = level->outer;
    } else {
        for (; level && !found; level = found ? level : level->outer)
            for (const Source& source : level->sources) {
                const int here = source.find(expression.name);
                if (here < 0)
                    continue;
                if (found)
                    refuse(kAmbiguous, expression.name.text);
                found = &source;
                place = here;
            }
    }
    if (!found || place < 0)
        refuse(kNoColumn, expression.name.text);
    const Column& column = found->columns()[size_t(place)];
    if (level == &scope)
        checkGrouped(*found, column, scope);
    if (scope.qualify || scope.outer)
        sql += found->sql + '.';
    sql += column.sql;
    return found->bound(column);
}

Bound Binder::rowPlace(const Expression& expression, const Scope& scope) {
    if (scope.sources.empty() || (expression.qualifier.isEmpty() && scope.sources.size() > 1))
        refuse(kNoColumn, QStringView(u"%%physloc%%"));
    const Source& source = expression.qualifier.isEmpty()
                               ? scope.sources.front()
                               : sourceNamed(expression.qualifier, Name(u"%%physloc%%"), scope);
    if (!source.table || source.table->system)
        refuse(kNoColumn, QStringView(u"%%physloc%%"));
    sql += source.sql + '.' + source.table->rowPlace();
    return {{Kind::BigInt}, false, false, true, nullptr};
}

// --- expressions -------------------------------------------------------------------------------------

Bound Binder::literal(const Expression& expression) {
    const QStringView text = expression.name.text;
    Bound bound;
    bound.nullable = false;
    bound.literal = &expression;
    switch (expression.kind) {
        case ExpressionKind::Null:
            sql += "NULL";
            bound.nullable = true;
            break;
        case ExpressionKind::Text:
            appendText(sql, text);
            bound.type = textType(std::max<qsizetype>(text.size(), 1));
            break;
        case ExpressionKind::Integer: {
            bool isInteger = false;
            (void)text.toInt(&isInteger);
            bound.type = isInteger ? integerType() : Type{Kind::Numeric, quint8(text.size()), 0, 0};
            appendUtf8(sql, text);
            break;
        }
        case ExpressionKind::Binary:
            sql += "x'";
            appendUtf8(sql, text.size() % 2 == 0 ? text.toString() : u'0' + text.toString());
            sql += '\'';
            bound.type = {Kind::VarBinary, 0, 0, qint32(std::max<qsizetype>((text.size() + 1) / 2, 1))};
            break;
        case ExpressionKind::Decimal:
            bound.type = {Kind::Numeric, quint8(text.size() - 1),
                          quint8(text.size() - 1 - text.indexOf(u'.')), 0};
            appendUtf8(sql, text);
            break;
        default:
            bound.type = {Kind::Float};
            appendUtf8(sql, text);
            break;
    }
    return bound;
}

Bound Binder::expression(const Expression& value, Scope& scope) {
    if (scope.grouped && !scope.inAggregate && !value.isLiteral()) {
        for (const Expression* group : scope.grouped->groupBy) {
            if (!sameExpression(value, *group))
                continue;
            scope.inAggregate = true;
            const Bound bound = expression(value, scope);
            scope.inAggregate = false;
            return bound;
        }
    }
    switch (value.kind) {
        case ExpressionKind::Column:
            return column(value, scope);
        case ExpressionKind::RowPlace:
            return rowPlace(value, scope);
        case ExpressionKind::Negate: {
            sql += "-(";
            Bound bound = expression(*value.arguments[0], scope);
            if (!bound.type.isNumber())
                refuse(u"Operand data type %1 is invalid for minus operator.", kindName(bound.type.kind));
            sql += ')';
            bound.plainColumn = false;
            bound.literal = nullptr;
            return bound;
        }
        case ExpressionKind::Arithmetic:
            return arithmetic(value, scope);
        case ExpressionKind::Call:
            return call(value, scope);
        case ExpressionKind::Convert:
            return conversion(value, scope);
        case ExpressionKind::Case:
            return caseOf(value, scope);
        case ExpressionKind::Subquery:
            return subquery(value, scope);
        case ExpressionKind::Star:
        case ExpressionKind::Default:
            refuse(kSyntax, QStringView(u"*"));
        default:
            return literal(value);
    }
}

Bound Binder::conversion(const Expression& value, Scope& scope) {
    const size_t start = sql.size();
    Bound bound = expression(*value.arguments[0], scope);
    const int style = value.arguments.size() > 1 ? value.arguments[1]->name.text.toInt() : 0;
    if (!knowsStyle(bound.type, value.type, style))
        refuse(u"The style %1 is not supported for conversions from %2 to %3.", QString::number(style),
               kindName(bound.type.kind), kindName(value.type.kind));
    coerce(start, bound, value.type, Purpose::Explicit, style);
    return bound;
}

Bound Binder::subquery(const Expression& value, Scope& scope) {
    const bool single = isSingle(*value.select);
    sql += single ? "(" : "(WITH found(value) AS (";
    const std::vector<OutputColumn> outputs = select(*value.select, {&scope});
    sql += single ? ")" : ") SELECT single_value(value) FROM found)";
    if (outputs.size() != 1)
        refuse(
            u"Only one expression can be specified in the select list when the subquery is not introduced "
            u"with EXISTS.");
    Bound bound = outputs[0].bound;
    bound.nullable = true;
    bound.identity = bound.plainColumn = false;
    bound.literal = nullptr;
    return bound;
}

Bound Binder::concatenation(size_t start, const Bound& left, size_t middle, const Bound& right,
                            bool chained) {
    sql.replace(middle, 3, " || ");
    Bound result;
    result.nullable = left.nullable || right.nullable;
    result.type = commonType(left.type, right.type);
    if (result.type.isPadded())
        result.type.kind = result.type.kind == Kind::Char ? Kind::VarChar : Kind::NVarChar;
    if (result.type.length > 0)
        result.type.length = left.type.length + right.type.length;
    if (chained)
        return result;
    const int longest = longestText(result.type);
    if (result.type.length > longest)
        wrap(start, "left_of_text(", ", " + std::to_string(longest) + ")");
    else
        wrap(start, "(", ")");
    result.type.length = std::min(result.type.length, longest);
    return result;
}

Bound Binder::arithmetic(const Expression& value, Scope& scope, bool chained) {
    const char16_t operation = value.operation;
    const size_t start = sql.size();
    const Expression& first = *value.arguments[0];
    Bound left =
        !scope.grouped && chains(first, value) ? arithmetic(first, scope, true) : expression(first, scope);
    const size_t middle = sql.size();
    sql += ' ';
    sql += char(operation);
    sql += ' ';
    const size_t rightStart = sql.size();
    Bound right = expression(*value.arguments[1], scope);
    if (operation == u'+' && !left.type.isNumber() && !right.type.isNumber() &&
        (left.type.isText() || right.type.isText()))
        return concatenation(start, left, middle, right, chained);
    Type type = commonType(left.type, right.type);
    if (type.kind == Kind::Null)
        type = integerType();
    if (!type.isNumber())
        refuse(u"Operand data type %1 is invalid for %2 operator.", kindName(type.kind),
               QStringView(operation == u'+'   ? u"add"
                           : operation == u'-' ? u"subtract"
                           : operation == u'*' ? u"multiply"
                           : operation == u'/' ? u"divide"
                                               : u"modulo"));
    if (operation == u'%' && !type.isInteger())
        refuse(u"The data types %1 and %2 are incompatible in the modulo operator.", kindName(left.type.kind),
               kindName(right.type.kind));
    const bool divides = operation == u'/' || operation == u'%';
    const bool knownDivisor = right.literal && right.literal->name.text.toDouble() != 0;
    std::array<Piece, 2> sides{{{start, middle, left, left.type.isText() ? type : left.type},
                                {rightStart, sql.size(), right, right.type.isText() ? type : right.type}}};
    coerceAll(sides);
    if (divides && !knownDivisor)
        wrap(sides[1].start, "divisor(", ")");
    if (operation == u'/' && !type.isInteger()) {
        const size_t length = sides[0].end - start;
        sql.insert(start + length, " AS REAL)").insert(start, "CAST(");
    }
    if (type.kind == Kind::Numeric) {
        const int scale = operation == u'*'   ? left.type.scale + right.type.scale
                          : operation == u'/' ? std::max<int>(6, type.scale)
                                              : type.scale;
        type = {Kind::Numeric, 38, quint8(std::min(scale, 38)), 0};
    }
    if (type.isInteger() && type.kind < Kind::Int)
        type.kind = Kind::Int;
    if (!chained) {
        const bool checked = type.kind == Kind::Int && !divides;
        wrap(start, checked ? "within_integer(" : "(", ")");
    }
    return {type, left.nullable || right.nullable, false, false, nullptr};
}

bool sameExpression(const Expression& left, const Expression& right) {
    if (left.kind != right.kind || left.operation != right.operation ||
        left.arguments.size() != right.arguments.size() || left.select || right.select ||
        left.distinct != right.distinct || left.negated != right.negated ||
        left.hasOperand != right.hasOperand || left.hasElse != right.hasElse || left.type != right.type)
        return false;
    if (left.isLiteral() ? left.name.text != right.name.text : !sameName(left.name.text, right.name.text))
        return false;
    if (!left.qualifier.isEmpty() && !right.qualifier.isEmpty() && !(left.qualifier == right.qualifier))
        return false;
    for (size_t i = 0; i < left.arguments.size(); ++i)
        if (!sameExpression(*left.arguments[i], *right.arguments[i]))
            return false;
    return true;
}

}  // namespace tsql
