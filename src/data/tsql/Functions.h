// What translated statements call inside SQLite where its own functions mean something else.
#pragma once

struct sqlite3;

namespace tsql {

// convert_value(x, from, to[, style])  CONVERT; `from` and `to` are packed types
// fit_value(x, from, to)               the value as a column stores it, or the server's refusal
// within_integer(x)                    an int that has not overflowed
// divisor(x)                           refuses 0
// single_value(x)                      the value of a group's only row; refuses a second row
// like_text(text, pattern[, escape])   LIKE
// part_of_text(x, start, length), left_of_text, right_of_text, replace_text, find_text,
// repeat_text, number_text(x, length, decimals), character_of(n), code_of(x), round_number(x, digits)
void registerFunctions(sqlite3* handle);

}  // namespace tsql
