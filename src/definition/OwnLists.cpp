#include "OwnLists.h"

#include "References.h"
#include "ShareList.h"

namespace definition {

qint64 OwnLists::codeAt(int row) const {
    return m_rows.valueAt(row, m_rows.columnIndex(m_page.fields.code)).toLongLong();
}

Renumbering OwnLists::withoutCurrentRow() const {
    const bool isNew = m_rows.state() == data::Dataset::State::Insert;
    QList<ItemCode> left;
    QList<qint64> before;
    for (int row = 0; row < m_rows.recordCount(); ++row) {
        const qint64 held = codeAt(row);
        if (row != m_rows.row())
            left.append({left.size() + 1, held});
        if (row != m_rows.row() || !isNew)
            before.append(held);
    }
    return {left, before};
}

void OwnLists::freeNewCode() {
    if (m_rows.state() != data::Dataset::State::Insert)
        return;
    const qint64 taken = codeAt(m_rows.row());
    for (int row = 0; row < m_rows.recordCount(); ++row)
        if (row != m_rows.row() && codeAt(row) == taken)
            return;
    renumber([taken](qint64 code) { return code == taken ? 0 : code; });
}

void OwnLists::renumber(const std::function<qint64(qint64)>& now) {
    for (const Reference& reference : referencesTo(m_page.table)) {
        const int column = m_rows.columnIndex(reference.column);
        if (reference.as != HeldAs::ShareList || column < 0 ||
            reference.table.compare(m_page.table, Qt::CaseInsensitive) != 0)
            continue;
        for (int row = 0; row < m_rows.recordCount(); ++row) {
            const QString list = m_rows.valueAt(row, column).toString();
            const QString moved = renumberShares(list, now);
            if (moved == list)
                continue;
            const int name = m_rows.columnIndex(m_page.fields.name);
            requireRoom(moved, m_rows.columns()[column].length, reference.title,
                        m_rows.valueAt(row, name).toString());
            m_rows.updateSilently(row, reference.column, moved);
        }
    }
}

}  // namespace definition
