// The rows of the definition grid: how a new one is numbered, what is checked before one is stored, and
// what a deletion does to the rest.
#include <QSet>

#include "CodePage.h"
#include "DatabaseHelpers.h"
#include "DefinitionPage.h"
#include "ModuleVariables.h"
#include "TextHelpers.h"
#include "Untfmsg.h"

namespace definition {
namespace {

const QString kCodeBefore = QStringLiteral("Codetemp");
const QString kMonth = QStringLiteral("Codemah");

}  // namespace

qint64 DefinitionPage::currentCode() const {
    return m_rows.text(m_definition.fields.code).trimmed().toLongLong();
}

void DefinitionPage::beforeInsert() {
    if (m_definition.newRow == NewRow::AfterLastRow)
        m_rows.last();
    else if (m_definition.newRow == NewRow::Never ||
             (m_definition.newRow == NewRow::OnlyFromLastRow && currentCode() != m_rows.recordCount()))
        throw data::SilentAbort();
}

void DefinitionPage::NumberNewRow() {
    if (m_definition.maxRows > 0 && m_rows.recordCount() > m_definition.maxRows) {
        m_rows.cancel();
        m_grid->setFocus();
        return;
    }
    m_rows.setValue(m_definition.fields.code, LastCode + 1);
    for (const auto& [column, value] : m_definition.defaults)
        m_rows.setValue(column, value);
    if (m_rows.columnIndex(kMonth) >= 0)
        m_rows.setValue(kMonth, m_window.Month_Curent());
}

void DefinitionPage::CorrectRow() {
    for (const auto& [column, limit] : m_definition.limits)
        if (m_rows.value(column).toDouble() > limit)
            m_rows.setValue(column, limit);
}

void DefinitionPage::ValidateRow() {
    m_rows.edit();
    CorrectRow();
    const PageMessages& messages = this->messages();
    const QString name = m_rows.text(m_definition.fields.name);
    if (!messages.emptyCode.isEmpty() && m_rows.text(m_definition.fields.code).trimmed().isEmpty())
        refuseRow(worded(messages.emptyCode), m_columns.first().grid.readOnly ? 1 : 0);
    if (!messages.emptyName.isEmpty() && Strip_Blanks(name).isEmpty())
        refuseRow(worded(messages.emptyName));
    for (const auto& [column, message] : m_definition.required)
        if (m_rows.text(column).trimmed().isEmpty())
            refuseRow(message);
    CheckRow();
    if (!messages.repeatedName.isEmpty() && Strip_Blanks(name) != Strip_Blanks(OldDesk) && nameRepeated(name))
        refuseRow(worded(messages.repeatedName));
}

bool DefinitionPage::nameRepeated(const QString& name) {
    if (!m_definition.monthRows)
        return Is_Name_Repeated(*_MyDatabase, m_rows.tableName(), m_definition.fields.name, name);
    // The table holds every month's rows, and each month has the same names again.
    const int column = m_rows.columnIndex(m_definition.fields.name);
    const QString wanted = Strip_Blanks(name);
    for (int row = 0; row < m_rows.recordCount(); ++row)
        if (row != m_rows.row() &&
            Strip_Blanks(m_rows.valueAt(row, column).toString()).compare(wanted, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

int DefinitionPage::gridColumn(const QString& field) const {
    for (int column = 0; column < m_columns.size(); ++column)
        if (m_columns[column].grid.field.compare(field, Qt::CaseInsensitive) == 0)
            return column;
    return -1;
}

bool DefinitionPage::isMarked(const QString& field) const {
    return m_rows.text(field) == QString(data::kMark);
}

bool DefinitionPage::showErrorAt(const QString& text, int column) {
    const QPointer<widgets::DataGrid> grid(m_grid);
    showError(text);
    if (grid) {
        grid->selectColumn(column);
        grid->setFocus();
    }
    return grid;
}

void DefinitionPage::refuseRow(const QString& text, int column) {
    showErrorAt(text, column);
    throw data::SilentAbort();
}

void DefinitionPage::RememberLeftRow() {
    LastCode = static_cast<qint32>(currentCode());
}

void DefinitionPage::RememberRow() {
    ShowColumnHint();
    rememberDescription();
}

void DefinitionPage::rememberDescription() {
    OldDesk = m_rows.text(m_definition.fields.name);
}

bool DefinitionPage::InUse() {
    const AmountTable& amounts = m_definition.amounts;
    const qint64 codeBefore = m_rows.text(kCodeBefore).trimmed().toLongLong();
    if (amounts.name.isEmpty() || codeBefore == 0)
        return false;
    const QString column = amountColumn(amounts, codeBefore);
    return Is_Column_Exist(*_MyDatabase, amounts.name, column) && m_window.HasTurnover(amounts.name, column);
}

void DefinitionPage::DeleteRow() {
    if (m_rows.isEmpty() || m_definition.deletion == Deletion::Refused)
        return;
    const PageMessages& messages = this->messages();
    if (InUse()) {
        showError(messages.inUse);
        return;
    }
    if (Show_Msg(messages.deleteQuestion, QString(), messages.deleteQuestionCode) != widgets::mrYes)
        return;
    deleteAndRenumber();
}

void DefinitionPage::deleteAndRenumber() {
    int row = m_rows.row();
    try {
        data::Transaction transaction(*_MyDatabase->Connection);
        if (m_definition.kind == PageKind::Direct) {
            deleteShared(row);
        } else {
            m_rows.deleteRow();
            if (Renumbers())
                FollowRenumbering(renumber());
        }
        // The rows are read again here: whoever is told of a failure has nothing deleted.
        m_rows.first();
        transaction.commit();
    } catch (...) {
        // The row is back; one whose deletion itself was refused never went, and keeps its edits.
        if (m_rows.state() == data::Dataset::State::Browse) {
            m_rows.refresh();
            m_rows.moveTo(row);
        }
        throw;
    }
}

QList<ItemCode> DefinitionPage::renumber() {
    QList<ItemCode> moved;
    const int code = m_rows.columnIndex(m_definition.fields.code);
    // Where two rows have one code, what refers to it belongs to the first.
    QSet<qint64> known;
    for (int row = 0; row < m_rows.recordCount(); ++row) {
        const QVariant before = m_rows.valueAt(row, code);
        const bool first = before.isValid() && !known.contains(before.toLongLong());
        known.insert(before.toLongLong());
        if (before == QVariant(row + 1))
            continue;
        if (first)
            moved.append({row + 1, before.toLongLong()});
        m_rows.updateSilently(row, m_definition.fields.code, row + 1);
    }
    return moved;
}

}  // namespace definition
