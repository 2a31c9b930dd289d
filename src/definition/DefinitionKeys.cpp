// How the definition grid reacts to keys, clicks and the way from column to column.
#include "CodePage.h"
#include "DefinitionPage.h"
#include "DetailEditor.h"
#include "EntryKeys.h"
#include "Errors.h"

namespace definition {

bool DefinitionPage::isMark(int column) const {
    return m_definition.layout->columns.value(column).grid.kind == widgets::ColumnKind::Mark;
}

bool DefinitionPage::GridKeys(QKeyEvent& key) {
    m_grid->setEditing(true);
    const int column = m_grid->selectedColumn();
    if (!isEnter(key) && movesAbout(key)) {
        ColumnMode(column);
        if (key.key() == Qt::Key_Escape)
            restoreDetailList(column);
        return false;
    }
    if (isEnter(key)) {
        moveOn(*m_grid);
        return true;
    }
    if (key.key() == Qt::Key_Insert && !(key.modifiers() & Qt::ShiftModifier)) {
        m_rows.append();
        return true;
    }
    if (!isMark(column))
        return false;
    m_grid->setEditing(false);
    if (key.key() == Qt::Key_Space)
        SpaceKey(true);
    return true;
}

void DefinitionPage::SpaceKey(bool fromGrid) {
    const int column = m_grid->selectedColumn();
    if (fromGrid && !m_definition.layout->columns[column].detailList.isEmpty())
        editDetailList(column);
    ToggleMark(column);
}

void DefinitionPage::ToggleMark(int column) {
    const forms::PageColumn& mark = m_definition.layout->columns[column];
    m_rows.edit();
    if (m_rows.text(mark.grid.field) != QString(data::kMark)) {
        m_rows.setValue(mark.grid.field, QString(data::kMark));
        return;
    }
    m_rows.setValue(mark.grid.field, QString());
    if (!mark.detailList.isEmpty())
        m_rows.setValue(mark.detailList, QString());
}

void DefinitionPage::editDetailList(int column) {
    const forms::PageColumn& mark = m_definition.layout->columns[column];
    const QPointer<DefinitionPage> alive(this);
    const std::optional<QString> list =
        editItemShares(m_copy.name(), m_rows.text(mark.detailList), mark.detailCaption);
    if (!list || !alive)
        throw data::SilentAbort();
    if (list->isEmpty())
        return;
    m_rows.edit();
    m_rows.setValue(mark.detailList, *list);
}

// A mark and its list are one cell to the operator: undoing the one undoes the other.
void DefinitionPage::restoreDetailList(int column) {
    const int list = m_rows.columnIndex(m_definition.layout->columns.value(column).detailList);
    if (list >= 0 && m_rows.state() != data::Dataset::State::Browse)
        m_rows.setValue(list, m_rows.originalValue(list));
}

void DefinitionPage::ColumnMode(int column) {
    m_grid->setEditing(!isMark(column));
}

void DefinitionPage::ColumnExit(int column) {
    const QString field = m_definition.layout->columns.value(column).grid.field;
    for (const auto& [limited, limit] : m_definition.limits)
        if (limited.compare(field, Qt::CaseInsensitive) == 0 && m_rows.value(limited).toDouble() > limit)
            m_rows.setValue(limited, limit);
}

void DefinitionPage::DoubleClick(int column) {
    if (!isMark(column))
        return;
    if (!m_definition.layout->columns[column].detailList.isEmpty())
        editDetailList(column);
    SpaceKey(false);
    ColumnMode(column);
}

}  // namespace definition
