// How the company's texts compare: letter case and trailing blanks ignored, Persian letters in the order
// of the alphabet.
#pragma once

#include <string_view>

struct sqlite3;

namespace tsql {

// The name under which SQLite knows it.
inline constexpr char kCollation[] = "server";

// Both in UTF-8; negative, 0 or positive.
int compareTexts(std::string_view left, std::string_view right);
// Place of a character in the order; letters of either case share one.
unsigned characterWeight(char32_t character);
// Takes the next character off a UTF-8 text.
char32_t nextCharacter(std::string_view& text);

// Makes compareTexts known to the connection as kCollation.
void registerCollation(sqlite3* handle);

}  // namespace tsql
