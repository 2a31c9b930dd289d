// Windows-1256, the code page of the company's database and of every file that the suite exchanges.
#pragma once

#include <QString>

namespace data {

// The mark of a set option: the letter that a symbol font draws as a check mark (byte 0xD6).
inline constexpr QChar kMark = QChar(0x0636);

// ی (U+06CC) becomes ي, the letter that the suite stores. Throws Refusal, naming the character, where
// one is left that the code page cannot hold.
QString foldToCodePage(const QString& text);

// Persian and Arabic digits become ASCII digits; for what an operator types.
QString foldDigits(const QString& text);

// The single byte of a character, 0 where the code page has none.
uchar codePageByte(QChar character);
// The character of a byte.
QChar codePageCharacter(uchar byte);

}  // namespace data
