// The gate through which a text comes into a cell, whether it is typed, pasted or copied with a row.
#pragma once

#include "DataGrid.h"

namespace widgets {

// A text from outside as one line: line ends and tabs become blanks, and go where it begins and ends;
// other control characters go.
QString cellLine(QStringView text);

// Characters that a cell of the column takes; `column` is null where no grid shows it.
int cellLength(const data::ColumnInfo& stored, const GridColumn* column);
// Refusal for more than `length` characters.
void requireLength(qsizetype characters, int length);

// The value that a text of at most `length` characters stands for in a cell. Refusal, in the column's own
// words where it has some, for a text that the cell does not take.
QVariant cellValue(const data::ColumnInfo& stored, const GridColumn* column, const QString& text, int length);

}  // namespace widgets
