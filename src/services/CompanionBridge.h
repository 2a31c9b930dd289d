// The suite's companion libraries: row filter, search and sort, report properties and printing. Each
// call loads the library, calls one entry point and unloads it again.
//
// Libraries lie in DLLS/SharedForms below the installation folder. Where Data/Companions.ini there names
// a development tree ([Development] Folder=…), filter, search and printing take theirs from that folder.
// All throw data::SilentAbort where the window ended while a library's dialog stood open.
#pragma once

#include "CompanionEntries.h"
#include "DataGrid.h"

// The statement that selects the rows the operator wants to see; empty when he gave up, or when the
// library is not there.
QString Show_Filter(widgets::DataGrid& grid, const QString& baseText);

// Report properties, for the report that `source` names (companions::ReportSource).
void Show_Report_Property(QObject* source, const QString& title);

// Searches the selected column. `memory` keeps the text searched for last, a column each, as a
// parameter text.
void Grid_Search(widgets::DataGrid& grid, const QString& sortColumn, const QString& table, QString& memory);

// Lets the operator order the grid's rows by several columns.
void Adv_Sort(widgets::DataGrid& grid);

// Printing; the second is the advanced one. A library that cannot be loaded is told in a plain box.
void Print_Grid(TDLLPrnParam parameters);
void Print_Grid1(TDLLPrnParam parameters);
