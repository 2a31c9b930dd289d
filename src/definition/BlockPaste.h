// Pastes a block of cells: over rows that are there and onto new ones, each cell through the gate of typed
// ones and each row under the rules of its page. If anything is refused nothing is pasted, unless the
// operator takes the rows that are right.
#pragma once

#include <functional>

#include "DataGrid.h"

namespace definition {

struct PasteRules {
    // Whether the column of the current row takes what is typed, marked or stepped; else its cell is left
    // out.
    std::function<bool(int column)> takes;
    std::function<QStringList(int column)> cycleValues;
    std::function<void(int column, bool on)> mark;
    // What is said of a refusal of the server.
    std::function<QString(const data::ServerError&)> refusal;
    // Before all of them are tried, which is once or oftener, and once they are stored, in the same
    // transaction.
    std::function<void()> begin = [] {};
    std::function<void()> end = [] {};
    // Rows are stored at once: before any that is there is written over, the operator is asked.
    bool storesAtOnce = false;
};

// Pastes the clipboard's block from the selected cell on. False where it holds no block or a cell is open:
// then it is a cell's text. Refusal for a block wider than the columns that are shown from that cell on.
bool pasteBlock(widgets::DataGrid& grid, const PasteRules& rules);

}  // namespace definition
