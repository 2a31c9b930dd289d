// Values from one declared type to another, as the server converts them.
#pragma once

#include <QByteArray>
#include <optional>
#include <string_view>
#include <variant>

#include "Type.h"

namespace tsql {

// What a value is converted for.
enum class Purpose {
    Explicit,   // CONVERT: a text that is too long is cut
    Assignment  // a write: only trailing blanks may be cut
};

// An integer, a real or a text in UTF-8, as SQLite keeps them.
using Scalar = std::variant<qint64, double, std::string>;

// Converts one value that is not NULL. Throws ServerError. `style` is CONVERT's for dates.
Scalar convert(const Scalar& value, const Type& from, const Type& to, Purpose purpose, int style = 0);

// Least and greatest value of an integer type.
struct IntegerRange {
    qint64 least, greatest;
};
IntegerRange integerRange(Kind kind);

// A whole number with blanks around it; empty text is 0. `tooLarge` tells a number that 64 bits do not
// hold from a text that is none.
std::optional<qint64> readInteger(std::string_view text, bool& tooLarge);
// A finite number with blanks around it; empty text is 0.
std::optional<double> readReal(std::string_view text);
// "2025-03-21 00:00:00.000" of what an operator or program writes for a moment.
std::optional<std::string> readMoment(std::string_view text);

// Characters of a UTF-8 text, by counting first bytes: ICU's steps take three times as long.
qsizetype characters(std::string_view text);
// The first `count` characters, all where there are fewer; never half a character.
std::string_view firstCharacters(std::string_view text, qsizetype count);
// What a text is compared by: blanks at its end do not count.
std::string_view withoutTrailingBlanks(std::string_view text);

}  // namespace tsql
