// The rows of a direct page are everybody's: other operators store, delete and move them while this one
// reads and types. What depends on all of them is worked out from those that the server has, in the
// transaction that changes them.
#include "DefinitionPage.h"
#include "ModuleVariables.h"
#include "Query.h"

namespace definition {

std::optional<qint64> DefinitionPage::storedRowCode() const {
    const QVariant code = m_rows.storedValue(m_definition.fields.code);
    return code.isValid() ? std::optional(code.toLongLong()) : std::nullopt;
}

qint64 DefinitionPage::lockRows() {
    data::Query query(_MyDatabase->Connection);
    query.setSql(
        "Select Max(" + m_definition.fields.code + ") From " + data::bracketed(m_rows.tableName()) +
        " With (TabLockX)" +
        (m_definition.monthRows ? " Where Codemah=" + data::quoted(m_window.Month_Curent()) : QString()));
    query.open();
    return query.integer(0);
}

void DefinitionPage::NumberStoredRow() {
    const int code = m_rows.columnIndex(m_definition.fields.code);
    // A code that has been typed is the operator's.
    if (m_rows.state() == data::Dataset::State::Insert && m_rows.value(code) == m_rows.originalValue(code))
        m_rows.setValue(code, lockRows() + 1);
}

void DefinitionPage::deleteShared() {
    lockRows();
    RowMoves moves;
    moves.deletedPlace = m_rows.storedPlace();
    // Somebody may have taken it into use while the question stood.
    if (InUse())
        throw data::Refusal(worded(messages().inUse));
    m_rows.deleteRow();
    m_rows.refresh();
    if (!Renumbers())
        return;
    QList<std::optional<qint64>> before;
    const int code = m_rows.columnIndex(m_definition.fields.code);
    for (int place = 0; place < m_rows.recordCount(); ++place) {
        const QVariant stored = m_rows.valueAt(place, code);
        before.append(stored.isValid() ? std::optional(stored.toLongLong()) : std::nullopt);
    }
    renumber();
    moves.codes = numberedByPlace(before);
    FollowMoves(moves);
}

}  // namespace definition
