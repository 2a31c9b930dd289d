#include "Functions.h"

#include <sqlite3.h>

#include <cmath>

#include "CodePage.h"
#include "Collation.h"
#include "Conversion.h"
#include "ServerText.h"

namespace tsql {
namespace {

using Call = void (*)(sqlite3_context*, int, sqlite3_value**);

std::string_view textOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text ? text : "", size_t(sqlite3_value_bytes(value))};
}

void give(sqlite3_context* context, std::string_view text) {
    sqlite3_result_text(context, text.data(), int(text.size()), SQLITE_TRANSIENT);
}

// NULL in, NULL out; a refusal becomes the statement's error.
template <Call function>
void guarded(sqlite3_context* context, int count, sqlite3_value** values) {
    for (int i = 0; i < count; ++i)
        if (sqlite3_value_type(values[i]) == SQLITE_NULL)
            return sqlite3_result_null(context);
    try {
        function(context, count, values);
    } catch (const data::ServerError& error) {
        sqlite3_result_error(context, error.what(), -1);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

Scalar scalarOf(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return qint64(sqlite3_value_int64(value));
        case SQLITE_FLOAT:
            return sqlite3_value_double(value);
        default:
            return std::string(textOf(value));
    }
}

void give(sqlite3_context* context, const Scalar& result) {
    if (const auto* number = std::get_if<qint64>(&result))
        sqlite3_result_int64(context, *number);
    else if (const auto* real = std::get_if<double>(&result))
        sqlite3_result_double(context, *real);
    else
        give(context, std::string_view(std::get<std::string>(result)));
}

void convertFor(Purpose purpose, sqlite3_context* context, int count, sqlite3_value** values) {
    const Type from = unpacked(sqlite3_value_int64(values[1])), to = unpacked(sqlite3_value_int64(values[2]));
    give(context,
         convert(scalarOf(values[0]), from, to, purpose, count > 3 ? sqlite3_value_int(values[3]) : 0));
}

void convertValue(sqlite3_context* context, int count, sqlite3_value** values) {
    convertFor(Purpose::Explicit, context, count, values);
}

void fitValue(sqlite3_context* context, int count, sqlite3_value** values) {
    convertFor(Purpose::Assignment, context, count, values);
}

void withinInteger(sqlite3_context* context, int, sqlite3_value** values) {
    const IntegerRange range = integerRange(Kind::Int);
    const sqlite3_int64 number = sqlite3_value_int64(values[0]);
    // SQLite turns an integer that leaves 64 bits into a real.
    if (sqlite3_value_type(values[0]) != SQLITE_INTEGER || number < range.least || number > range.greatest)
        refuse(u"Arithmetic overflow error converting expression to data type int.");
    sqlite3_result_int64(context, number);
}

void divisor(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_double(values[0]) == 0)
        refuse(u"Divide by zero error encountered.");
    sqlite3_result_value(context, values[0]);
}

// The aggregate's memory: a copy of the value once there is one.
struct Single {
    sqlite3_value* value;
};

void takeSingle(sqlite3_context* context, int, sqlite3_value** values) {
    auto* single = static_cast<Single*>(sqlite3_aggregate_context(context, sizeof(Single)));
    if (!single)
        return sqlite3_result_error_nomem(context);
    if (single->value)
        return sqlite3_result_error(context, "Subquery returned more than 1 value.", -1);
    single->value = sqlite3_value_dup(values[0]);
}

void giveSingle(sqlite3_context* context) {
    auto* single = static_cast<Single*>(sqlite3_aggregate_context(context, 0));
    if (!single || !single->value)
        return sqlite3_result_null(context);
    sqlite3_result_value(context, single->value);
    sqlite3_value_free(single->value);
}

// --- LIKE ------------------------------------------------------------------------------------------

struct PatternClass {
    bool matches = false;
    std::string_view rest;  // of the pattern, after the closing bracket
};

PatternClass matchClass(char32_t character, std::string_view pattern) {
    const unsigned weight = characterWeight(character);
    const bool negated = !pattern.empty() && pattern.front() == '^';
    if (negated)
        pattern.remove_prefix(1);
    bool found = false;
    bool first = true;
    while (!pattern.empty() && (first || pattern.front() != ']')) {
        first = false;
        const unsigned low = characterWeight(nextCharacter(pattern));
        unsigned high = low;
        if (pattern.size() > 1 && pattern[0] == '-' && pattern[1] != ']') {
            pattern.remove_prefix(1);
            high = characterWeight(nextCharacter(pattern));
        }
        found = found || (weight >= low && weight <= high);
    }
    if (!pattern.empty())
        pattern.remove_prefix(1);
    return {found != negated, pattern};
}

// Whether `text` begins with one character of the pattern, which both go past.
bool matchesNext(std::string_view& text, std::string_view& pattern, char32_t escape) {
    const char32_t wanted = nextCharacter(pattern);
    if (text.empty())
        return false;
    const char32_t character = nextCharacter(text);
    if (escape && wanted == escape && !pattern.empty())
        return characterWeight(nextCharacter(pattern)) == characterWeight(character);
    if (wanted == U'[') {
        const PatternClass matched = matchClass(character, pattern);
        pattern = matched.rest;
        return matched.matches;
    }
    return wanted == U'_' || characterWeight(wanted) == characterWeight(character);
}

// Only the last % may have to take more: what stands before it has been met as early as could be.
bool isLike(std::string_view text, std::string_view pattern, char32_t escape) {
    bool open = false;
    std::string_view behind, tried;  // the pattern after the last %, the text that it is tried on
    for (;;) {
        if (!pattern.empty() && pattern.front() == '%' && escape != U'%') {
            pattern.remove_prefix(1);
            open = true;
            behind = pattern;
            tried = text;
            continue;
        }
        if (!pattern.empty()) {
            if (matchesNext(text, pattern, escape))
                continue;
        } else if (withoutTrailingBlanks(text).empty()) {
            return true;  // trailing blanks of the text need no counterpart in the pattern
        }
        if (!open || tried.empty())
            return false;
        nextCharacter(tried);
        text = tried;
        pattern = behind;
    }
}

void likeText(sqlite3_context* context, int count, sqlite3_value** values) {
    std::string_view escape = count > 2 ? textOf(values[2]) : std::string_view();
    sqlite3_result_int(
        context, isLike(textOf(values[0]), textOf(values[1]), escape.empty() ? 0 : nextCharacter(escape)));
}

// --- texts -----------------------------------------------------------------------------------------

void givePart(sqlite3_context* context, std::string_view text, qint64 start, qint64 length) {
    if (length < 0)
        refuse(u"Invalid length parameter passed to the LEFT or SUBSTRING function.");
    const qint64 end = std::max<qint64>(start + length, 1);
    start = std::max<qint64>(start, 1);
    const std::string_view rest = text.substr(firstCharacters(text, qsizetype(start - 1)).size());
    give(context, firstCharacters(rest, qsizetype(std::max<qint64>(end - start, 0))));
}

void partOfText(sqlite3_context* context, int, sqlite3_value** values) {
    givePart(context, textOf(values[0]), sqlite3_value_int64(values[1]), sqlite3_value_int64(values[2]));
}

void leftOfText(sqlite3_context* context, int, sqlite3_value** values) {
    givePart(context, textOf(values[0]), 1, sqlite3_value_int64(values[1]));
}

void rightOfText(sqlite3_context* context, int, sqlite3_value** values) {
    const qint64 length = sqlite3_value_int64(values[1]);
    if (length < 0)
        refuse(u"Invalid length parameter passed to the RIGHT function.");
    const std::string_view text = textOf(values[0]);
    givePart(context, text, std::max<qint64>(characters(text) - length, 0) + 1, length);
}

bool startsWith(std::string_view text, std::string_view wanted, size_t& consumed) {
    const size_t before = text.size();
    while (!wanted.empty()) {
        if (text.empty() || characterWeight(nextCharacter(text)) != characterWeight(nextCharacter(wanted)))
            return false;
    }
    consumed = before - text.size();
    return true;
}

void replaceText(sqlite3_context* context, int, sqlite3_value** values) {
    std::string_view text = textOf(values[0]);
    const std::string_view wanted = textOf(values[1]), replacement = textOf(values[2]);
    if (wanted.empty())
        return give(context, text);
    std::string result;
    for (size_t consumed = 0; !text.empty();) {
        if (startsWith(text, wanted, consumed)) {
            result += replacement;
        } else {
            std::string_view rest = text;
            nextCharacter(rest);
            consumed = text.size() - rest.size();
            result += text.substr(0, consumed);
        }
        text.remove_prefix(consumed);
    }
    const qint64 longest = sqlite3_value_int64(values[3]);
    give(context, longest > 0 ? firstCharacters(result, longest) : result);
}

void findText(sqlite3_context* context, int count, sqlite3_value** values) {
    const std::string_view wanted = textOf(values[0]);
    std::string_view text = textOf(values[1]);
    qint64 place = count > 2 ? std::max<qint64>(sqlite3_value_int64(values[2]), 1) : 1;
    text.remove_prefix(firstCharacters(text, qsizetype(place - 1)).size());
    for (size_t consumed = 0; !text.empty() && !wanted.empty(); ++place, nextCharacter(text))
        if (startsWith(text, wanted, consumed))
            return sqlite3_result_int64(context, place);
    sqlite3_result_int(context, 0);
}

void repeatText(sqlite3_context* context, int, sqlite3_value** values) {
    const std::string_view text = textOf(values[0]);
    const qint64 longest = sqlite3_value_int64(values[2]);
    const qint64 length = characters(text);
    if (sqlite3_value_int64(values[1]) < 0)
        return sqlite3_result_null(context);
    qint64 times = length > 0 ? sqlite3_value_int64(values[1]) : 0;
    if (longest > 0 && length > 0)
        times = std::min(times, longest / length + 1);
    if (times >
        sqlite3_limit(sqlite3_context_db_handle(context), SQLITE_LIMIT_LENGTH, -1) / qint64(text.size() + 1))
        return sqlite3_result_error_toobig(context);
    std::string result;
    for (; times > 0; --times)
        result += text;
    give(context, longest > 0 ? firstCharacters(result, longest) : result);
}

void numberText(sqlite3_context* context, int, sqlite3_value** values) {
    const int length = std::clamp(sqlite3_value_int(values[1]), 0, 8000);
    const int decimals = std::clamp(sqlite3_value_int(values[2]), 0, 16);
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%*.*f", std::min(length, 380), decimals,
                  sqlite3_value_double(values[0]));
    std::string text = buffer;
    if (text.size() > size_t(length)) {
        const size_t point = text.find('.');
        text = (point == std::string::npos ? text.size() : point) > size_t(length)
                   ? std::string(size_t(length), '*')
                   : text.substr(0, size_t(length));
    }
    give(context, std::string_view(text));
}

void characterOf(sqlite3_context* context, int, sqlite3_value** values) {
    const sqlite3_int64 code = sqlite3_value_int64(values[0]);
    if (code < 0 || code > 255)
        return sqlite3_result_null(context);
    const QByteArray text = QString(data::codePageCharacter(uchar(code))).toUtf8();
    give(context, std::string_view(text.constData(), size_t(text.size())));
}

void codeOf(sqlite3_context* context, int, sqlite3_value** values) {
    std::string_view text = textOf(values[0]);
    if (text.empty())
        return sqlite3_result_null(context);
    sqlite3_result_int(context, data::codePageByte(QChar(char16_t(nextCharacter(text)))));
}

void roundNumber(sqlite3_context* context, int, sqlite3_value** values) {
    const double factor = std::pow(10.0, sqlite3_value_int(values[1]));
    const double number = std::round(sqlite3_value_double(values[0]) * factor) / factor;
    if (sqlite3_value_type(values[0]) == SQLITE_INTEGER)
        sqlite3_result_int64(context, sqlite3_int64(number));
    else
        sqlite3_result_double(context, number);
}

}  // namespace

void registerFunctions(sqlite3* handle) {
    struct Registered {
        const char* name;
        int arguments;
        Call function;
    };
    static constexpr Registered kFunctions[] = {
        {"convert_value", 3, guarded<convertValue>},
        {"convert_value", 4, guarded<convertValue>},
        {"fit_value", 3, guarded<fitValue>},
        {"within_integer", 1, guarded<withinInteger>},
        {"divisor", 1, guarded<divisor>},
        {"like_text", 2, guarded<likeText>},
        {"like_text", 3, guarded<likeText>},
        {"part_of_text", 3, guarded<partOfText>},
        {"left_of_text", 2, guarded<leftOfText>},
        {"right_of_text", 2, guarded<rightOfText>},
        {"replace_text", 4, guarded<replaceText>},
        {"find_text", 2, guarded<findText>},
        {"find_text", 3, guarded<findText>},
        {"repeat_text", 3, guarded<repeatText>},
        {"number_text", 3, guarded<numberText>},
        {"character_of", 1, guarded<characterOf>},
        {"code_of", 1, guarded<codeOf>},
        {"round_number", 2, guarded<roundNumber>},
    };
    for (const Registered& function : kFunctions)
        sqlite3_create_function_v2(handle, function.name, function.arguments,
                                   SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                                   function.function, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(handle, "single_value", 1,
                               SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr, nullptr,
                               takeSingle, giveSingle, nullptr);
}

}  // namespace tsql
