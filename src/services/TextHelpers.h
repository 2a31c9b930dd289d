// Text, key and parameter helpers. A parameter text is a run of entries: an upper-case key, "=", a
// value and ";".
#pragma once

#include <QString>

#include "HostContext.h"

// The character to use in place of a typed one: on keyboards that type the other forms of yeh, kaf,
// peh and jeh, those that the suite stores.
QChar Fix_Persian_Key(const data::HostContext& context, QChar key);

// Without blanks and kashida, which do not count when descriptions are compared.
QString Strip_Blanks(const QString& text);

// What tells a description from others that look the same: without anything that takes no place or is blank,
// in one letter case, each of the letters that are drawn alike as one.
QString Bare_Name(const QString& text);

// In mode "NUM" only digits and backspace; in any other mode every key.
bool Is_Key_Allowed(const QString& mode, QChar key);

// Exactly `width` characters: the text's first, or blanks (the character) before it.
QString Pad_Left(const QString& text, int width);
QString Pad_Left_Char(const QString& text, QChar character, int width);

// The value of the first place where key + "=" stands, upper-cased; empty when there is none. A key
// that is the tail of a longer one finds the longer one's entry when that comes first.
QString Get_Param(const QString& text, const QString& key);
// The text with that value replaced or the entry appended, all upper-cased.
QString Set_Param(const QString& text, const QString& key, const QString& value);

// Seconds since midnight, followed directly by the hundredths (0 to 99): the end of work-table names.
QString Time_Stamp();
