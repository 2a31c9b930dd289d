// A grid's rows as a dBase file, for programs that read nothing else.
#pragma once

#include "DataGrid.h"

enum class DbfText {
    Windows,  // Windows-1256
    Dos       // the DOS Persian code page: letters by their form, in visual order
};

// The text in the DOS Persian code page, ready for a screen that shows bytes from left to right. What the
// page has no code for is replaced or dropped as its users expect; no byte is a question mark in its
// place. Shaped and ordered here and not by ICU: the page's forms, and where its screens put numbers and
// signs, are not Unicode's.
QByteArray Dos_Persian(const QString& text);

// Writes all rows of the grid's dataset, one field a column of the dataset, into `file`, in place of
// what was there. A row in edit is stored first. Refusal when the file cannot be written or a name or
// value does not fit the format, which names the column; no number is rounded. No half file stays, and one
// that was there before stays whole. Shows progress; SilentAbort when the operator gives up.
void Export_Dbf(widgets::DataGrid& grid, const QString& file, DbfText text);
