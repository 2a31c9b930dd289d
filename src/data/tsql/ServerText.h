// The server's refusals in its own words; pages look for them.
#pragma once

#include <QString>
#include <QStringView>

#include "Errors.h"

namespace tsql {

// Throws ServerError; `text` holds %1, %2 … for the arguments.
template <typename... Arguments>
[[noreturn]] void refuse(const char16_t* text, const Arguments&... arguments) {
    QString result = QString::fromUtf16(text);
    if constexpr (sizeof...(arguments) > 0)
        result = result.arg(QStringView(arguments).toString()...);
    throw data::ServerError(result, data::ServerError::numberOf(result));
}

// A statement nested deeper than the engine follows.
[[noreturn]] inline void refuseDepth() {
    refuse(
        u"Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into "
        u"smaller "
        u"queries.");
}

inline constexpr char16_t kSyntax[] = u"Incorrect syntax near '%1'.";
inline constexpr char16_t kNoObject[] = u"Invalid object name '%1'.";
inline constexpr char16_t kNoColumn[] = u"Invalid column name '%1'.";
inline constexpr char16_t kAmbiguous[] = u"Ambiguous column name '%1'.";
inline constexpr char16_t kUnbound[] = u"The multi-part identifier \"%1.%2\" could not be bound.";
inline constexpr char16_t kObjectExists[] = u"There is already an object named '%1' in the database.";
inline constexpr char16_t kNoProcedure[] = u"Could not find stored procedure '%1'.";
inline constexpr char16_t kTwiceInTable[] =
    u"Column names in each table must be unique. Column name '%1' in table '%2' is specified more than once.";
inline constexpr char16_t kTwiceAssigned[] =
    u"The column name '%1' is specified more than once in the SET clause or column list of an INSERT. A "
    u"column "
    u"cannot be assigned more than one value in the same clause.";
inline constexpr char16_t kTruncated[] = u"String or binary data would be truncated.";

}  // namespace tsql
