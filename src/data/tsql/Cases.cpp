// CASE: every operand is written once, and what they have in common settled afterwards.
#include "Binder.h"

namespace tsql {
namespace {

constexpr std::string_view kCase = "CASE", kNested = "CASE WHEN ", kWhen = " WHEN ", kThen = " THEN ",
                           kElse = " ELSE ", kEnd = " END";

Type typeOfAll(const std::vector<Piece>& results) {
    Type type;
    for (const Piece& result : results)
        type = commonType(type, result.bound.type);
    return type;
}

std::vector<Piece> inOrder(const std::vector<Piece>& left, const std::vector<Piece>& right) {
    std::vector<Piece> all(left.size() + right.size());
    std::merge(left.begin(), left.end(), right.begin(), right.end(), all.begin(),
               [](const Piece& one, const Piece& other) { return one.start < other.start; });
    return all;
}

}  // namespace

// SQLite's parser takes some twenty levels. A CASE that stands last in another becomes WHENs of that one.
void Binder::unnest(std::vector<Piece>& results, bool hasElse, size_t lastWhen) {
    const Type type = results.back().to;
    const auto nestedLength = [&](const Piece* piece) -> size_t {
        const bool nested =
            piece && piece->bound.type == type && sql.compare(piece->start, kNested.size(), kNested) == 0;
        return nested ? piece->end - piece->start : 0;
    };
    Piece* const otherwise = hasElse ? &results.back() : nullptr;
    const Piece then = results[results.size() - (hasElse ? 2 : 1)];
    const size_t inThen = nestedLength(&then), inElse = nestedLength(otherwise);
    if (inElse > inThen) {
        sql.resize(sql.size() - kEnd.size());
        sql.erase(otherwise->start - kElse.size(), kElse.size() + kCase.size());
        results.pop_back();
    } else if (inThen > 0) {
        std::string other = "NULL";
        if (otherwise) {
            coerce(otherwise->start, otherwise->bound, type, Purpose::Assignment);
            other = cut(otherwise->start);
            results.pop_back();
        }
        results.pop_back();
        sql.resize(then.end);
        const std::string inner = cut(then.start);
        sql.resize(sql.size() - kThen.size());
        const std::string when = cut(lastWhen + kWhen.size());
        sql += '(' + when + ") IS NOT TRUE" + std::string(kThen) + other;
        sql.append(inner, kCase.size(), inner.size() - kCase.size() - kEnd.size());
    }
    coerceAll(results);
}

// A value that each WHEN compares in another type is written anew for each.
void Binder::compareCases(size_t start, const std::vector<Piece>& compared, std::vector<Piece>& results) {
    const std::string written = cut(start);
    const WrittenValue value = compared.front().in(written, start);
    sql += kCase;
    for (size_t i = 0; i < results.size(); ++i) {
        const bool when = i + 1 < compared.size();
        sql += when ? kWhen : kElse;
        if (when) {
            compareAgain(value, compared[i + 1].in(written, start), u'=');
            sql += kThen;
        }
        const size_t at = sql.size();
        sql += results[i].in(written, start).text;
        results[i].start = at;
        results[i].end = sql.size();
    }
    coerceAll(results);
}

Bound Binder::caseOf(const Expression& value, Scope& scope) {
    const auto& arguments = value.arguments;
    const size_t last = arguments.size() - (value.hasElse ? 1 : 0);
    const size_t start = sql.size();
    std::vector<Piece> compared, results;
    size_t lastWhen = 0;
    sql += kCase;
    if (value.hasOperand) {
        sql += ' ';
        compared.push_back(collatedPiece(*arguments[0], scope));
    }
    for (size_t i = value.hasOperand ? 1 : 0; i < last; i += 2) {
        lastWhen = sql.size();
        sql += kWhen;
        if (value.hasOperand)
            compared.push_back(piece(*arguments[i], scope));
        else
            condition(*arguments[i], scope);
        sql += kThen;
        results.push_back(piece(*arguments[i + 1], scope));
    }
    if (value.hasElse) {
        sql += kElse;
        results.push_back(piece(*arguments.back(), scope));
    }
    const Type type = typeOfAll(results);
    bool nullable = !value.hasElse;
    for (Piece& result : results) {
        result.to = type;
        nullable = nullable || result.bound.nullable;
    }
    if (!value.hasOperand)
        unnest(results, value.hasElse, lastWhen);
    else if (meetInOneType(compared))
        coerceAll(inOrder(compared, results));
    else
        compareCases(start, compared, results);
    sql += kEnd;
    return {type, nullable, false, false, nullptr};
}

}  // namespace tsql
