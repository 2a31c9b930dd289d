#include "Conversion.h"

#include <unicode/utf8.h>

#include <QDate>
#include <charconv>
#include <cmath>
#include <limits>

#include "ServerText.h"

namespace tsql {
namespace {

QString shown(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    return withoutTrailingBlanks(text);
}

[[noreturn]] void overflow(const Type& to) {
    refuse(u"Arithmetic overflow error converting expression to data type %1.", kindName(to.kind));
}

// --- numbers ---------------------------------------------------------------------------------------

qint64 inRange(qint64 number, const Type& to) {
    const IntegerRange range = integerRange(to.kind);
    if (number >= range.least && number <= range.greatest)
        return number;
    if (to.kind == Kind::TinyInt || to.kind == Kind::SmallInt)
        refuse(u"Arithmetic overflow error for data type %1, value = %2.", kindName(to.kind),
               QString::number(number));
    overflow(to);
}

qint64 textToInteger(const std::string& text, const Type& from, const Type& to) {
    bool tooLarge = false;
    const std::optional<qint64> number = readInteger(text, tooLarge);
    if (!number && !tooLarge)
        refuse(u"Conversion failed when converting the %1 value '%2' to data type %3.", kindName(from.kind),
               shown(text), kindName(to.kind));
    const IntegerRange range = integerRange(to.kind);
    if (tooLarge || (to.kind != Kind::Bit && (*number < range.least || *number > range.greatest)))
        refuse(u"The conversion of the %1 value '%2' overflowed an %3 column.", kindName(from.kind),
               shown(text), kindName(to.kind));
    return *number;
}

Scalar toInteger(const Scalar& value, const Type& from, const Type& to) {
    qint64 number = 0;
    if (const auto* text = std::get_if<std::string>(&value)) {
        number = textToInteger(*text, from, to);
    } else if (const auto* real = std::get_if<double>(&value)) {
        if (!(std::fabs(*real) < 9.2e18))
            overflow(to);
        // Money rounds, the other reals lose their fraction.
        number = qint64(from.kind == Kind::Money ? std::round(*real) : *real);
    } else {
        number = std::get<qint64>(value);
    }
    if (to.kind == Kind::Bit)
        return qint64(number != 0);
    return inRange(number, to);
}

double rounded(double number, int scale) {
    const double factor = std::pow(10.0, scale);
    const double moved = number * factor;
    // Beyond 2^53 a real has no fraction left to round.
    return std::fabs(moved) < 9e15 ? std::round(moved) / factor : number;
}

double textToReal(const std::string& text, const Type& from, const Type& to) {
    const bool money = to.kind == Kind::Money;
    std::string digits(trimmed(text));
    if (money)
        std::erase(digits, ',');
    const std::optional<double> number = readReal(digits);
    if (number && (to.kind != Kind::Numeric || !digits.empty()))
        return *number;
    if (money)
        refuse(u"Cannot convert a char value to money. The char value has incorrect syntax.");
    refuse(u"Error converting data type %1 to %2.", kindName(from.kind), kindName(to.kind));
}

Scalar toReal(const Scalar& value, const Type& from, const Type& to) {
    double number = 0;
    if (const auto* text = std::get_if<std::string>(&value))
        number = textToReal(*text, from, to);
    else if (const auto* real = std::get_if<double>(&value))
        number = *real;
    else
        number = double(std::get<qint64>(value));
    if (to.kind == Kind::Real)
        return double(float(number));
    if (to.kind == Kind::Money) {
        if (std::fabs(number) > 922337203685477.5807)
            overflow(to);
        return rounded(number, 4);
    }
    if (to.kind == Kind::Numeric) {
        number = rounded(number, to.scale);
        if (std::fabs(number) >= std::pow(10.0, to.precision - to.scale))
            refuse(u"Arithmetic overflow error converting %1 to data type numeric.", kindName(from.kind));
    }
    return number;
}

// --- texts -----------------------------------------------------------------------------------------

std::string realToText(double number, const Type& from) {
    char buffer[400];
    if (from.kind == Kind::Numeric || from.kind == Kind::Money) {
        std::snprintf(buffer, sizeof buffer, "%.*f", from.kind == Kind::Numeric ? from.scale : 2, number);
        return buffer;
    }
    std::snprintf(buffer, sizeof buffer, "%.6g", number);
    std::string text = buffer;
    // The server writes exponents with three digits.
    const size_t exponent = text.find('e');
    if (exponent != std::string::npos && text.size() - exponent == 4)
        text.insert(text.begin() + ptrdiff_t(exponent) + 2, '0');
    return text;
}

// "Mar 21 2025 12:00AM", or the part of "2025-03-21 00:00:00.000" that a style names.
std::string momentToText(const std::string& moment, int style) {
    if (moment.size() < 19 || style == 121 || style == 21)
        return moment;
    const std::string year = moment.substr(0, 4), month = moment.substr(5, 2), day = moment.substr(8, 2);
    switch (style) {
        case 120:
        case 20:
            return moment.substr(0, 19);
        case 103:
            return day + "/" + month + "/" + year;
        case 111:
            return year + "/" + month + "/" + day;
        case 112:
            return year + month + day;
        default:
            break;
    }
    static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const int hour = std::atoi(moment.substr(11, 2).c_str());
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%s %2d %s %2d:%s%s", kMonths[(std::atoi(month.c_str()) + 11) % 12],
                  std::atoi(day.c_str()), year.c_str(), (hour + 11) % 12 + 1, moment.substr(14, 2).c_str(),
                  hour < 12 ? "AM" : "PM");
    return buffer;
}

Scalar toText(const Scalar& value, const Type& from, const Type& to, Purpose purpose, int style) {
    std::string text;
    if (const auto* given = std::get_if<std::string>(&value))
        text = from.kind == Kind::DateTime ? momentToText(*given, style) : *given;
    else if (from.isInteger())
        text = std::to_string(std::holds_alternative<qint64>(value) ? std::get<qint64>(value)
                                                                    : qint64(std::get<double>(value)));
    else
        text = realToText(
            std::holds_alternative<double>(value) ? std::get<double>(value) : double(std::get<qint64>(value)),
            from);
    if (to.length > 0 && characters(text) > to.length) {
        if (from.isNumber())
            overflow(to);
        if (purpose == Purpose::Assignment && characters(withoutTrailingBlanks(text)) > to.length)
            refuse(kTruncated);
        text = firstCharacters(text, to.length);
    }
    if (to.isPadded() && characters(text) < to.length)
        text.append(size_t(to.length - characters(text)), ' ');
    return text;
}

// --- moments ---------------------------------------------------------------------------------------

Scalar toMoment(const Scalar& value, const Type& from) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (from.kind == Kind::DateTime)
            return value;
        if (const std::optional<std::string> moment = readMoment(*text))
            return *moment;
        refuse(u"Conversion failed when converting date and/or time from character string.");
    }
    refuse(u"Arithmetic overflow error converting expression to data type datetime.");
}

}  // namespace

IntegerRange integerRange(Kind kind) {
    switch (kind) {
        case Kind::Bit:
            return {0, 1};
        case Kind::TinyInt:
            return {0, 255};
        case Kind::SmallInt:
            return {-32768, 32767};
        case Kind::Int:
            return {-2147483648LL, 2147483647LL};
        default:
            return {std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()};
    }
}

std::optional<qint64> readInteger(std::string_view text, bool& tooLarge) {
    text = trimmed(text);
    if (text.empty())
        return 0;
    if (text.front() == '+' && text.size() > 1 && text[1] != '-')
        text.remove_prefix(1);
    qint64 number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    tooLarge = error == std::errc::result_out_of_range;
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

std::optional<double> readReal(std::string_view text) {
    text = trimmed(text);
    if (text.empty())
        return 0.0;
    if (text.front() == '+' && text.size() > 1 && text[1] != '-')
        text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<std::string> readMoment(std::string_view given) {
    const std::string text(trimmed(given));
    int year = 1900, month = 1, day = 1, hour = 0, minute = 0, consumed = 0;
    double second = 0;
    size_t at = 0;
    const auto scan = [&](const char* format, int* first, int* middle, int* last) {
        consumed = 0;
        if (std::sscanf(text.c_str(), format, first, middle, last, &consumed) != 3 || consumed == 0)
            return false;
        at = size_t(consumed);
        return true;
    };
    if (!text.empty() && !scan("%4d-%2d-%2d%n", &year, &month, &day) &&
        !scan("%4d/%2d/%2d%n", &year, &month, &day) && !scan("%2d/%2d/%4d%n", &month, &day, &year) &&
        !scan("%4d%2d%2d%n", &year, &month, &day))
        return std::nullopt;
    if (at < text.size() && (text[at] == 'T' || text[at] == ' '))
        ++at;
    if (at < text.size()) {
        consumed = 0;
        const int fields =
            std::sscanf(text.c_str() + at, "%2d:%2d%n:%lf%n", &hour, &minute, &consumed, &second, &consumed);
        if (fields < 2 || at + size_t(consumed) != text.size())
            return std::nullopt;
    }
    if (year < 1753 || year > 9999 || !QDate::isValid(year, month, day) || hour < 0 || hour > 23 ||
        minute < 0 || minute > 59 || second < 0 || second >= 60)
        return std::nullopt;
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%06.3f", year, month, day, hour, minute,
                  second);
    return std::string(buffer);
}

Scalar convert(const Scalar& value, const Type& from, const Type& to, Purpose purpose, int style) {
    if (to.isInteger())
        return toInteger(value, from, to);
    if (to.isNumber())
        return toReal(value, from, to);
    if (to.kind == Kind::DateTime)
        return toMoment(value, from);
    if (to.isText())
        return toText(value, from, to, purpose, style);
    return value;
}

qsizetype characters(std::string_view text) {
    qsizetype count = 0;
    for (char byte : text)
        count += (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
    return count;
}

std::string_view firstCharacters(std::string_view text, qsizetype count) {
    const int size = int(text.size());
    int at = 0;
    U8_FWD_N(text.data(), at, size, std::min<qsizetype>(count, size));
    return text.substr(0, size_t(at));
}

std::string_view withoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

}  // namespace tsql
