// Blocks of cells by the clipboard, as spreadsheets have them: lines of cells with tabs between, from the
// right edge on. A cell that holds a tab, a line end or a quote at its beginning stands between quotes, with
// its own doubled. Texts are the stored ones; a mark is the letter ض.
#pragma once

#include "DataGrid.h"

// The grid's marked block; a row in edit is stored first.
void Copy_Block(widgets::DataGrid& grid, const widgets::GridBlock& block);

// The cells of such a text. Lines end with CR LF, LF or CR; an empty end is no line.
QList<QStringList> Parse_Block(QStringView text);
// Whether it holds more than one cell.
bool Is_Block(const QString& text);
