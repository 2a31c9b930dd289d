#include "Binder.h"

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
           left.kind == Kind::Null || right.kind == Kind::Null;
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
            between(value, scope);
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
    std::array<Piece, 2> sides;
    sides[0] = piece(left, scope);
    sql += comparison(operation);
    sides[1] = piece(right, scope);
    compared(sides);
}

void Binder::compareAgain(const WrittenValue& left, const WrittenValue& right, char16_t operation) {
    // What is repeated on every level of a nest doubles with each.
    constexpr size_t kLongest = 1'000'000;
    if (sql.size() + left.text.size() + right.text.size() > kLongest)
        refuseDepth();
    const auto write = [this](const WrittenValue& value) {
        const size_t start = sql.size();
        sql += value.text;
        return Piece{start, sql.size(), value.bound, value.bound.type};
    };
    std::array<Piece, 2> sides;
    sides[0] = write(left);
    sql += comparison(operation);
    sides[1] = write(right);
    compared(sides);
}

void Binder::compared(std::array<Piece, 2>& sides) {
    auto& [left, right] = sides;
    if (!comparable(left.bound.type, right.bound.type)) {
        left.to = right.to = commonType(left.bound.type, right.bound.type);
        coerceAll(sides);
    }
    // SQLite takes the collation of the left operand's column, else the right one's.
    if (!left.bound.plainColumn)
        collate(right.start, right.bound);
}

// The first piece is compared with each of the others. Where it takes one type for all of them, that and
// theirs become their targets.
bool Binder::meetInOneType(std::span<Piece> pieces) {
    Piece& left = pieces.front();
    bool decided = false;
    for (Piece& other : pieces.subspan(1)) {
        if (other.bound.type.kind == Kind::Null)
            continue;
        const bool alike = comparable(left.bound.type, other.bound.type);
        const Type common = alike ? left.bound.type : commonType(left.bound.type, other.bound.type);
        if (decided && common != left.to)
            return false;
        left.to = common;
        other.to = alike ? other.bound.type : common;
        decided = true;
    }
    return true;
}

void Binder::between(const Expression& value, Scope& scope) {
    constexpr const char* kBefore[] = {"", " BETWEEN ", " AND "};
    sql += value.negated ? "NOT (" : "(";
    const size_t start = sql.size();
    std::array<Piece, 3> sides;
    for (size_t i = 0; i < 3; ++i) {
        sql += kBefore[i];
        sides[i] = collatedPiece(*value.arguments[i], scope);
    }
    if (meetInOneType(sides)) {
        coerceAll(sides);
    } else {
        const std::string written = cut(start);
        compareAgain(sides[0].in(written, start), sides[1].in(written, start), kGreaterOrEqual);
        sql += " AND ";
        compareAgain(sides[0].in(written, start), sides[2].in(written, start), kLessOrEqual);
    }
    sql += ')';
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
    if (value.select)
        return inSelect(value, scope);
    const size_t start = sql.size();
    std::vector<Piece> pieces;
    pieces.reserve(value.arguments.size());
    pieces.push_back(collatedPiece(*value.arguments[0], scope));
    sql += value.negated ? " NOT IN (" : " IN (";
    for (const Expression* item : value.arguments.subspan(1)) {
        sql += pieces.size() > 1 ? ", " : "";
        pieces.push_back(piece(*item, scope));
    }
    if (meetInOneType(pieces)) {
        coerceAll(pieces);
    } else {
        // Each value is compared by its own type.
        const std::string written = cut(start);
        sql += value.negated ? "NOT (" : "(";
        for (size_t i = 1; i < pieces.size(); ++i) {
            sql += i > 1 ? " OR " : "";
            compareAgain(pieces[0].in(written, start), pieces[i].in(written, start), u'=');
        }
    }
    sql += ')';
}

void Binder::inSelect(const Expression& value, Scope& scope) {
    Piece left = collatedPiece(*value.arguments[0], scope);
    sql += value.negated ? " NOT IN (" : " IN (";
    const size_t start = sql.size();
    const std::vector<OutputColumn> outputs = select(*value.select, {&scope});
    if (outputs.size() != 1)
        refuse(
            u"Only one expression can be specified in the select list when the subquery is not introduced "
            u"with EXISTS.");
    const Type type = outputs[0].bound.type;
    if (!comparable(left.bound.type, type)) {
        left.to = commonType(left.bound.type, type);
        sql.insert(start, "WITH found(value) AS (");
        sql += ") SELECT ";
        Bound found{type, true, false, false, nullptr};
        const size_t at = sql.size();
        sql += "value";
        coerce(at, found, left.to, Purpose::Assignment);
        sql += " FROM found";
        coerceAll(std::span(&left, 1));
    }
    sql += ')';
}

}  // namespace tsql
