// A grid's rows on the clipboard and in files that other programs open. Texts are the stored ones, as a
// cell shows them while it is edited; a mark is the letter ض.
//
// All operations that take rows away, Copy_Cell apart, store a row in edit first: what the operator typed
// last is part of what leaves. A refusal then ends them. Long ones show progress and can be given up
// (SilentAbort), which leaves no file.
#pragma once

#include "DataGrid.h"
#include "HostContext.h"

// The current row as field=value<tab>…, in the order of the grid's columns.
QString Copy_Row(widgets::DataGrid& grid);
// Writes such a text into the dataset's current row, which stays in edit. Identity columns and those that
// are `kept` stay as they are. Refusal, and the row as it was, for a field that the dataset lacks or that
// comes twice, and for a value that does not fit.
void Paste_Row(data::Dataset& dataSet, widgets::DataGrid& grid, const QString& rowText,
               const QStringList& kept = {});

// The marked block of cells; else the selected cell's value; with a cell being typed into, what is typed.
void Copy_Cell(widgets::DataGrid& grid);
// Puts the clipboard's text into the selected cell; Refusal where the cell cannot be typed into or the
// text does not fit.
void Paste_Cell(widgets::DataGrid& grid);

// Title line and one line a row, each a run of <tab>text over the visible columns, ended by a tab and two
// blanks. `reversed` takes the columns from the last to the first, as text that reads from the left
// shows a right-to-left grid. Ends on the last row.
void Copy_Grid(widgets::DataGrid& grid, bool reversed);

// Writes that text to EXCEL/<dataset><extension> (".XLS") or WORD/<dataset><extension> below the
// installation folder, made when missing, and opens it with the program of its extension. UTF-16LE with
// byte order mark, CR/LF. Refusal when the file cannot be written; no half file stays, and one that was
// there before stays whole.
void Export_Office(const data::HostContext& context, widgets::DataGrid& grid, bool reversed,
                   const QString& extension);

// Writes html/<dataset>.html likewise, UTF-8 with byte order mark, texts escaped.
void Export_Html(const data::HostContext& context, widgets::DataGrid& grid, const QString& title);
