// Cells of a page that the space bar changes and no letter: marks, the detail lists behind some of them, and
// cycles.
#pragma once

#include "DataGrid.h"
#include "Dataset.h"
#include "PageDefinition.h"

namespace definition {

class MarkCells {
public:
    // `columns` are those that the page shows now.
    MarkCells(data::Dataset& rows, const QList<forms::PageColumn>& columns)
        : m_rows(rows), m_columns(columns) {}

    // Lets the operator edit the detail list of a mark's column; SilentAbort when he gives up.
    std::function<void(const forms::PageColumn& mark)> editList;

    // Whether the column holds marks or a cycle.
    bool holds(int column) const;
    // Whether the current row has the mark of that field.
    bool isMarked(const QString& field) const;
    // The space bar in the column.
    void press(int column);
    // The mark, toggled; its detail list goes with it.
    void toggle(int column);
    // A mark and its list are one cell to the operator: undoing the one undoes the other.
    void restoreList(int column);

private:
    void step(const forms::PageColumn& cycle);

    data::Dataset& m_rows;
    const QList<forms::PageColumn>& m_columns;
};

}  // namespace definition
