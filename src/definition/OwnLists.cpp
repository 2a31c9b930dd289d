// Lists of shares that are made of the page's own rows follow them while they are edited.
#include "DefinitionPage.h"
#include "ShareList.h"

namespace definition {

// What the codes will be once the current row is gone.
Renumbering DefinitionPage::withoutCurrentRow() const {
    const int code = m_rows.columnIndex(m_definition.fields.code);
    const bool isNew = m_rows.state() == data::Dataset::State::Insert;
    QList<ItemCode> left;
    QList<qint64> before;
    for (int row = 0; row < m_rows.recordCount(); ++row) {
        const qint64 held = m_rows.valueAt(row, code).toLongLong();
        if (row != m_rows.row())
            left.append({left.size() + 1, held});
        if (row != m_rows.row() || !isNew)
            before.append(held);
    }
    return {left, before};
}

void DefinitionPage::followDeletion() {
    if (m_definition.listsOwnRows)
        renumberOwnLists([this](qint64 code) { return m_deletion.now(code); });
}

// A new row takes nothing that still names its code from before: no row had it.
void DefinitionPage::freeNewCode() {
    if (m_rows.state() != data::Dataset::State::Insert)
        return;
    const int column = m_rows.columnIndex(m_definition.fields.code);
    for (int row = 0; row < m_rows.recordCount(); ++row)
        if (row != m_rows.row() && m_rows.valueAt(row, column).toLongLong() == currentCode())
            return;
    renumberOwnLists([taken = currentCode()](qint64 code) { return code == taken ? 0 : code; });
}

void DefinitionPage::renumberOwnLists(const std::function<qint64(qint64)>& now) {
    for (const Reference& reference : referencesTo(m_definition.table)) {
        const int column = m_rows.columnIndex(reference.column);
        if (reference.as != HeldAs::ShareList || column < 0 ||
            reference.table.compare(m_definition.table, Qt::CaseInsensitive) != 0)
            continue;
        for (int row = 0; row < m_rows.recordCount(); ++row) {
            const QString list = m_rows.valueAt(row, column).toString();
            const QString moved = renumberShares(list, now);
            if (moved == list)
                continue;
            const int name = m_rows.columnIndex(m_definition.fields.name);
            requireRoom(moved, m_rows.columns()[column].length, reference.title,
                        m_rows.valueAt(row, name).toString());
            m_rows.updateSilently(row, reference.column, moved);
        }
    }
}

}  // namespace definition
