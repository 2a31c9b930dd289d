// The rows of the definition grid: how a new one is numbered, what is checked before one is stored, and
// what a deletion does to the rest.
#include <QSet>
#include <limits>

#include "CodePage.h"
#include "DatabaseHelpers.h"
#include "DefinitionPage.h"
#include "ModuleVariables.h"
#include "Query.h"
#include "TextHelpers.h"
#include "Untfmsg.h"

namespace definition {
namespace {

const QString kMonth = QStringLiteral("Codemah");
constexpr qint64 kLargestCode = std::numeric_limits<qint32>::max() - 1;  // the next one is a code still
const QString kPastCounting =
    QStringLiteral("كد %1 پذيرفته نيست، چون كد رديف بعدي از آن شمرده مي شود. كد كوچكتري بدهيد.");

}  // namespace

qint64 DefinitionPage::currentCode() const {
    return m_rows.text(m_definition.fields.code).trimmed().toLongLong();
}

// Whether the codes are numbers, and `code` leaves none to count on to.
bool DefinitionPage::isPastCounting(qint64 code) const {
    const int column = m_rows.columnIndex(m_definition.fields.code);
    return m_rows.columns().value(column).type == data::ColumnType::Integer && qAbs(code) > kLargestCode;
}

void DefinitionPage::requireCountableCode() {
    const QVariant stored = m_rows.originalValue(m_rows.columnIndex(m_definition.fields.code));
    if (isPastCounting(currentCode()) && m_rows.value(m_definition.fields.code) != stored)
        refuseRow(kPastCounting.arg(currentCode()), 0);
}

void DefinitionPage::beforeInsert() {
    if (m_definition.newRow == NewRow::AfterLastRow) {
        m_rows.last();
        if (isPastCounting(currentCode() + 1))
            throw data::Refusal(kPastCounting.arg(currentCode() + 1));
    } else if (m_definition.newRow == NewRow::Never ||
               (m_definition.newRow == NewRow::OnlyFromLastRow && currentCode() != m_rows.recordCount())) {
        throw data::SilentAbort();
    }
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
    requireCountableCode();
    if (!messages.emptyName.isEmpty() && Bare_Name(name).isEmpty())
        refuseRow(worded(messages.emptyName));
    for (const auto& [column, message] : m_definition.required)
        if (m_rows.text(column).trimmed().isEmpty())
            refuseRow(message);
    CheckRow();
    if (!messages.repeatedName.isEmpty() && Strip_Blanks(name) != Strip_Blanks(storedName()) &&
        nameRepeated(name))
        refuseRow(worded(messages.repeatedName));
}

QString DefinitionPage::storedName() const {
    return data::valueText(m_rows.originalValue(m_rows.columnIndex(m_definition.fields.name)));
}

bool DefinitionPage::nameRepeated(const QString& name) {
    const QString stored = storedName();
    const QString wanted = Bare_Name(name);
    // The company's procedure knows neither the row itself nor months, and each month has the same names
    // again.
    if (!m_definition.monthRows && wanted != Bare_Name(stored) &&
        Is_Name_Repeated(*_MyDatabase, m_rows.tableName(), m_definition.fields.name, name))
        return true;
    bool itself = m_rows.state() == data::Dataset::State::Edit;  // is yet to come
    bool repeated = false;
    _MyDatabase->Connection->stream(
        m_rows.selection({m_definition.fields.name}), [](const QList<data::ColumnInfo>&) {},
        [&](const data::RowView& row) {
            const QString other = QString::fromUtf8(row.text(0));
            if (itself && other == stored)
                itself = false;
            else
                repeated = Bare_Name(other) == wanted;
            return !repeated;
        });
    return repeated;
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

bool DefinitionPage::InUse() {
    const qint64 code = copiedRow().code;
    if (code == 0)
        return false;
    for (const Reference& reference : referencesTo(m_definition.table)) {
        if (reference.as == HeldAs::Amounts) {
            const QString column = reference.column + QString::number(code);
            if (Is_Column_Exist(*_MyDatabase, reference.table, column) &&
                m_window.HasTurnover(reference.table, column))
                return true;
        } else if (!reference.keepsRow.isEmpty()) {
            QString statement = reference.keepsRow;
            data::Query records(_MyDatabase->Connection);
            records.setSql(statement.replace(QLatin1String("%1"), heldLiteral(reference, code))
                               .replace(QLatin1String("%2"), data::quoted(m_window.Month_Curent())));
            records.open();
            if (!records.isEmpty())
                return true;
        }
    }
    return false;
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
    const CopiedRow deleted = copiedRow();
    if (m_definition.listsOwnRows)
        m_deletion = withoutCurrentRow();
    deleteAndRenumber();
    m_copied.remove(deleted);
}

void DefinitionPage::deleteAndRenumber() {
    const auto change = [this] {
        if (m_definition.kind == PageKind::Direct) {
            deleteShared();
        } else {
            m_rows.deleteRow();
            if (Renumbers()) {
                renumber();
                followDeletion();
            }
        }
    };
    try {
        m_rows.transact(change, data::Dataset::After::FirstRow);
    } catch (const data::Refusal&) {
        // Another operator has taken the row into use or away.
        if (m_rows.state() == data::Dataset::State::Browse)
            widgets::EventBoundary::run([this] { m_rows.refresh(); });
        throw;
    }
}

void DefinitionPage::renumber() {
    const int code = m_rows.columnIndex(m_definition.fields.code);
    for (int row = 0; row < m_rows.recordCount(); ++row)
        if (m_rows.valueAt(row, code) != QVariant(row + 1))
            m_rows.updateSilently(row, m_definition.fields.code, row + 1);
}

}  // namespace definition
