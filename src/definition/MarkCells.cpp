#include "MarkCells.h"

#include "CodePage.h"

namespace definition {

bool MarkCells::holds(int column) const {
    const widgets::ColumnKind kind = m_columns.value(column).grid.kind;
    return kind == widgets::ColumnKind::Mark || kind == widgets::ColumnKind::Cycle;
}

bool MarkCells::isMarked(const QString& field) const {
    return m_rows.text(field) == QString(data::kMark);
}

void MarkCells::press(int column) {
    const forms::PageColumn& cell = m_columns[column];
    const bool marked = isMarked(cell.grid.field);
    if (!cell.detailList.isEmpty())
        editList(cell);
    // A list that its window stored has brought the mark along.
    if (isMarked(cell.grid.field) != marked)
        return;
    if (cell.grid.kind == widgets::ColumnKind::Cycle)
        step(cell);
    else
        toggle(column);
}

void MarkCells::step(const forms::PageColumn& cycle) {
    m_rows.edit();
    // From a value that is none of them indexOf leads to the first.
    const qsizetype next = cycle.cycle.indexOf(m_rows.text(cycle.grid.field).trimmed()) + 1;
    m_rows.setValue(cycle.grid.field, cycle.cycle.value(next % cycle.cycle.size()));
}

void MarkCells::toggle(int column) {
    const forms::PageColumn& mark = m_columns[column];
    m_rows.edit();
    if (!isMarked(mark.grid.field)) {
        m_rows.setValue(mark.grid.field, QString(data::kMark));
        return;
    }
    m_rows.setValue(mark.grid.field, QString());
    if (!mark.detailList.isEmpty())
        m_rows.setValue(mark.detailList, QString());
}

void MarkCells::restoreList(int column) {
    const int list = m_rows.columnIndex(m_columns.value(column).detailList);
    if (list >= 0 && m_rows.state() != data::Dataset::State::Browse)
        m_rows.setValue(list, m_rows.originalValue(list));
}

}  // namespace definition
