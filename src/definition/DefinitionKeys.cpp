// How the definition grid reacts to keys, clicks and the way from column to column.
#include "BlockPaste.h"
#include "DefinitionPage.h"
#include "DetailEditor.h"
#include "EntryKeys.h"
#include "Errors.h"
#include "Untfmsg.h"

namespace definition {

bool DefinitionPage::GridKeys(QKeyEvent& key) {
    m_grid->setEditing(true);
    const int column = m_grid->selectedColumn();
    if (!isEnter(key) && movesAbout(key)) {
        ColumnMode(column);
        if (key.key() == Qt::Key_Escape)
            m_marks.restoreList(column);
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
    if (!m_marks.holds(column))
        return false;
    m_grid->setEditing(false);
    if (key.key() == Qt::Key_Space)
        m_marks.press(column);
    return true;
}

// Over the salary items that a list is made of: the rows on this page, or the month's stored ones.
bool DefinitionPage::editDetailList(const forms::PageColumn& mark) {
    const QString items =
        m_definition.listsOwnRows ? m_copy.name() : "Paymozd where codemah=" + data::quoted(month());
    if (m_definition.fixedAmounts) {
        const std::optional<QString> text =
            editSharesOrAmount(host(), items, m_rows, mark.detailList, mark.grid.field);
        if (!text)
            throw data::SilentAbort();
        return !text->isEmpty();
    }
    const std::optional<QString> list =
        editItemShares(host(), items, m_rows.text(mark.detailList), mark.detailCaption);
    if (!list)
        throw data::SilentAbort();
    if (list->isEmpty())
        return false;
    m_rows.edit();
    m_rows.setValue(mark.detailList, *list);
    return true;
}

bool DefinitionPage::pasteBlock() {
    const PasteRules rules = {
        .takes =
            [this](int column) {
                const widgets::GridColumn& shown = m_columns[column].grid;
                return !shown.readOnly && m_rows.columnIndex(shown.field) >= 0;
            },
        .cycleValues = [this](int column) { return m_columns[column].cycle; },
        .mark =
            [this](int column, bool on) {
                if (m_marks.isMarked(m_columns[column].grid.field) != on)
                    m_marks.toggle(column);
            },
        .refusal =
            [this](const data::ServerError& error) {
                try {
                    const Overheard overheard;
                    PostErrorHandler(error);
                } catch (const data::Refusal& words) {
                    return words.text();
                }
                return error.text();
            },
        .begin =
            [this] {
                if (!m_definition.fields.name.isEmpty() && !m_definition.messages.repeatedName.isEmpty())
                    m_names.emplace(db(), m_definition, m_rows);
                beginBlock();
            },
        .end = [this] { endBlock(); },
        .storesAtOnce = m_definition.kind == PageKind::Direct};
    m_pastes = true;
    const auto done = qScopeGuard([this] {
        m_pastes = false;
        m_names.reset();
    });
    const bool pasted = definition::pasteBlock(*m_grid, rules);
    m_history.note();
    return pasted;
}

void DefinitionPage::ColumnMode(int column) {
    m_grid->setEditing(!m_marks.holds(column));
}

void DefinitionPage::leaveColumn(int column) {
    limit(m_columns.value(column).grid.field);
}

void DefinitionPage::doubleClick(int column) {
    if (!m_marks.holds(column) || m_rows.isEmpty())
        return;
    m_marks.press(column);
    ColumnMode(column);
}

}  // namespace definition
