// How the definition grid reacts to keys, clicks and the way from column to column.
#include "CodePage.h"
#include "DefinitionPage.h"
#include "DetailEditor.h"
#include "EntryKeys.h"
#include "Errors.h"

namespace definition {

bool DefinitionPage::isMark(int column) const {
    const widgets::ColumnKind kind = m_columns.value(column).grid.kind;
    return kind == widgets::ColumnKind::Mark || kind == widgets::ColumnKind::Cycle;
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
        pressSpace();
    return true;
}

void DefinitionPage::pressSpace() {
    const int column = m_grid->selectedColumn();
    const bool marked = isMarked(m_columns[column].grid.field);
    if (!m_columns[column].detailList.isEmpty())
        editDetailList(column);
    // A list that its window stored has brought the mark along.
    if (isMarked(m_columns[column].grid.field) != marked)
        return;
    if (m_columns[column].grid.kind == widgets::ColumnKind::Cycle)
        stepCycle(column);
    else
        ToggleMark(column);
}

void DefinitionPage::stepCycle(int column) {
    const QStringList& values = m_columns[column].cycle;
    const QString& field = m_columns[column].grid.field;
    m_rows.edit();
    // From a value that is none of them indexOf leads to the first.
    const qsizetype next = values.indexOf(m_rows.text(field).trimmed()) + 1;
    m_rows.setValue(field, values.value(next % values.size()));
}

void DefinitionPage::ToggleMark(int column) {
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

// The salary items that a detail list is made of: the rows on this page, or the month's stored ones.
QString DefinitionPage::listItems() const {
    return m_definition.listsOwnRows ? m_copy.name()
                                     : "Paymozd where codemah=" + data::quoted(m_window.Month_Curent());
}

void DefinitionPage::editDetailList(int column) {
    const forms::PageColumn& mark = m_columns[column];
    const QPointer<DefinitionPage> alive(this);
    if (m_definition.fixedAmounts) {
        if (!editSharesOrAmount(listItems(), m_rows, mark.detailList, mark.grid.field) || !alive)
            throw data::SilentAbort();
        return;
    }
    const std::optional<QString> list =
        editItemShares(listItems(), m_rows.text(mark.detailList), mark.detailCaption);
    if (!list || !alive)
        throw data::SilentAbort();
    if (list->isEmpty())
        return;
    m_rows.edit();
    m_rows.setValue(mark.detailList, *list);
}

// A mark and its list are one cell to the operator: undoing the one undoes the other.
void DefinitionPage::restoreDetailList(int column) {
    const int list = m_rows.columnIndex(m_columns.value(column).detailList);
    if (list >= 0 && m_rows.state() != data::Dataset::State::Browse)
        m_rows.setValue(list, m_rows.originalValue(list));
}

void DefinitionPage::ColumnMode(int column) {
    m_grid->setEditing(!isMark(column));
}

void DefinitionPage::ColumnExit(int column) {
    const QString field = m_columns.value(column).grid.field;
    for (const auto& [limited, limit] : m_definition.limits)
        if (limited.compare(field, Qt::CaseInsensitive) == 0 && m_rows.value(limited).toDouble() > limit)
            m_rows.setValue(limited, limit);
}

void DefinitionPage::DoubleClick(int column) {
    if (!isMark(column) || m_rows.isEmpty())
        return;
    pressSpace();
    ColumnMode(column);
}

}  // namespace definition
