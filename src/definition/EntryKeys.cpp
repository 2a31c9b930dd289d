#include "EntryKeys.h"

namespace definition {

bool isEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool movesAbout(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Escape:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Menu:
            return true;
        default:
            return widgets::isMove(key.key()) ||
                   (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    }
}

void moveOn(widgets::DataGrid& grid) {
    const QList<int> order = grid.visibleOrder();
    if (grid.selectedColumn() != grid.lastVisibleColumn()) {
        grid.selectColumn(order.value(order.indexOf(grid.selectedColumn()) + 1));
        return;
    }
    data::Dataset& rows = *grid.dataset();
    if (rows.recNo() == rows.recordCount())
        rows.append();
    else
        rows.next();
    grid.selectColumn(order.first());
}

}  // namespace definition
