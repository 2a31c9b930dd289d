#include "Binder.h"
#include "Collation.h"

namespace tsql {
namespace {

const char* comparison(char16_t operation) {
    switch (operation) {
        case kNotEqual:
            return " <> ";
        case kLessOrEqual:
            return " <= ";
        case kGreaterOrEqual:
            return " >= ";
        case u'<':
            return " < ";
        case u'>':
            return " > ";
        default:
            return " = ";
    }
}

// Between texts only the order matters, not the length, so nothing is converted.
bool comparable(const Type& left, const Type& right) {
    return (left.isText() && right.isText()) || (left.isNumber() && right.isNumber()) ||
           left.kind == Kind::Null || right.kind == Kind::Null || (left.isBinary() && right.isBinary());
}

}  // namespace

void Binder::condition(const Expression& value, Scope& scope) {
    switch (value.kind) {
        case ExpressionKind::And:
        case ExpressionKind::Or:
            for (size_t i = 0; i < 2; ++i) {
                // A chain needs no brackets, and SQLite's parser takes only so many.
                const Expression& side = *value.arguments[i];
                const bool loose = side.kind == ExpressionKind::Or && value.kind == ExpressionKind::And;
                sql += i == 0 ? "" : value.kind == ExpressionKind::And ? " AND " : " OR ";
                sql += loose ? "(" : "";
                condition(side, scope);
                sql += loose ? ")" : "";
            }
            break;
        case ExpressionKind::Not:
            sql += "NOT (";
            condition(*value.arguments[0], scope);
            sql += ')';
            break;
        case ExpressionKind::IsNull:
            expression(*value.arguments[0], scope);
            sql += value.negated ? " IS NOT NULL" : " IS NULL";
            break;
        case ExpressionKind::Compare:
            compare(*value.arguments[0], *value.arguments[1], value.operation, scope);
            break;
        case ExpressionKind::Between:
            sql += value.negated ? "NOT (" : "(";
            compare(*value.arguments[0], *value.arguments[1], kGreaterOrEqual, scope);
            sql += " AND ";
            compare(*value.arguments[0], *value.arguments[2], kLessOrEqual, scope);
            sql += ')';
            break;
        case ExpressionKind::Like:
            like(value, scope);
            break;
        case ExpressionKind::In:
            in(value, scope);
            break;
        case ExpressionKind::Exists:
            sql += "EXISTS (";
            select(*value.select, {&scope});
            sql += ')';
            break;
        default:
            refuse(kSyntax, value.name.text);
    }
}

void Binder::compare(const Expression& left, const Expression& right, char16_t operation, Scope& scope) {
    const size_t start = sql.size();
    Bound leftBound = expression(left, scope);
    const size_t middle = sql.size();
    sql += comparison(operation);
    const size_t rightStart = sql.size();
    Bound rightBound = expression(right, scope);
    if (!comparable(leftBound.type, rightBound.type)) {
        const Type type = commonType(leftBound.type, rightBound.type);
        coerce(rightStart, rightBound, type, Purpose::Assignment);
        if (!(leftBound.type == type)) {
            const std::string rest = sql.substr(middle);
            sql.resize(middle);
            coerce(start, leftBound, type, Purpose::Assignment);
            sql += rest;
        }
    }
    // SQLite takes the collation of the left operand's column, else the right one's.
    if (!leftBound.plainColumn)
        collate(rightStart, rightBound);
}

void Binder::like(const Expression& value, Scope& scope) {
    sql += value.negated ? "NOT like_text(" : "like_text(";
    for (size_t i = 0; i < value.arguments.size(); ++i) {
        if (i > 0)
            sql += ", ";
        const size_t start = sql.size();
        Bound bound = expression(*value.arguments[i], scope);
        if (!bound.type.isText())
            coerce(start, bound, textType(8000), Purpose::Explicit);
    }
    sql += ')';
}

void Binder::in(const Expression& value, Scope& scope) {
    const Expression& left = *value.arguments[0];
    if (!value.select) {
        // Each value is compared by its own type where one of them differs; mostly none does.
        const size_t start = sql.size();
        Bound leftBound = expression(left, scope);
        collate(start, leftBound);
        sql += value.negated ? " NOT IN (" : " IN (";
        for (size_t i = 1; i < value.arguments.size(); ++i) {
            const size_t at = sql.size();
            Bound bound = expression(*value.arguments[i], scope);
            if (!comparable(leftBound.type, bound.type)) {
                const Type type = commonType(leftBound.type, bound.type);
                if (!(type == leftBound.type)) {
                    sql.resize(start);
                    sql += value.negated ? "NOT (" : "(";
                    for (size_t j = 1; j < value.arguments.size(); ++j) {
                        if (j > 1)
                            sql += " OR ";
                        compare(left, *value.arguments[j], u'=', scope);
                    }
                    sql += ')';
                    return;
                }
                coerce(at, bound, type, Purpose::Assignment);
            }
            sql += i + 1 < value.arguments.size() ? ", " : "";
        }
        sql += ')';
        return;
    }
    const size_t start = sql.size();
    Bound leftBound = expression(left, scope);
    const size_t middle = sql.size();
    sql += value.negated ? " NOT IN (" : " IN (";
    const size_t subStart = sql.size();
    const std::vector<OutputColumn> outputs = select(*value.select, {&scope});
    if (outputs.size() != 1)
        refuse(
            u"Only one expression can be specified in the select list when the subquery is not introduced "
            u"with EXISTS.");
    if (!comparable(leftBound.type, outputs[0].bound.type)) {
        const std::vector<Type> targets{commonType(leftBound.type, outputs[0].bound.type)};
        sql.resize(subStart);
        SelectPurpose converted{&scope};
        converted.targets = &targets;
        select(*value.select, converted);
        const std::string rest = sql.substr(middle);
        sql.resize(middle);
        coerce(start, leftBound, targets[0], Purpose::Assignment);
        sql += rest;
    } else if (leftBound.type.isText() && !leftBound.plainColumn) {
        const std::string rest = sql.substr(middle);
        sql.resize(middle);
        collate(start, leftBound);
        sql += rest;
    }
    sql += ')';
}

}  // namespace tsql
