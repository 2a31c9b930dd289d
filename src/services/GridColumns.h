// Column widths after the widest value. The server looks for it: two statements for all columns, whatever
// the number of rows.
#pragma once

#include "DataGrid.h"
#include "HostContext.h"

// Groups the integer part of a number by thousands with ","; a decimal part behind "." or "/" stays as
// it is. Empty reads "0".
QString Format_Thousands(const QString& number);

// Sets the width of every visible column over a field to its longest value among the rows in the grid, its
// total for a numeric one and, unless `skipTitles`, its title, and 8 pixels more. `tolerance`: how many
// characters short of the longest a measured value may be.
void Fit_Grid_Columns(data::HostDatabase& db, widgets::DataGrid& grid, bool skipTitles, int tolerance);
