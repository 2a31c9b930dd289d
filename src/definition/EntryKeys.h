// Keys that every grid for data entry understands alike.
#pragma once

#include <QKeyEvent>

#include "DataGrid.h"

namespace definition {

// Enter of either block, with no or any modifier.
bool isEnter(const QKeyEvent& key);
// What moves about, undoes or leaves is the grid's own on every column, marks included.
bool movesAbout(const QKeyEvent& key);
// To the next column; from the last one to the first column of the next row, or of a new one after the
// last row.
void moveOn(widgets::DataGrid& grid);

}  // namespace definition
