// The rows of the definition grid: how a new one is numbered, what is checked before one is stored, and
// what a deletion does to the rest.
#include <QSet>
#include <limits>

#include "DatabaseHelpers.h"
#include "DefinitionPage.h"
#include "Query.h"
#include "References.h"
#include "RowNames.h"
#include "RowUsage.h"
#include "TextHelpers.h"
#include "Untfmsg.h"

namespace definition {
namespace {

const QString kMonth = QStringLiteral("Codemah");
constexpr qint64 kLargestCode = std::numeric_limits<qint32>::max() - 1;  // the next one is a code still
const QString kPastCounting =
    QStringLiteral("كد %1 پذيرفته نيست، چون كد رديف بعدي از آن شمرده مي شود. كد كوچكتري بدهيد.");

// Whether the codes are numbers, and `code` leaves none to count on to.
bool isPastCounting(const data::Dataset& rows, const QString& field, qint64 code) {
    return rows.columns().value(rows.columnIndex(field)).type == data::ColumnType::Integer &&
           qAbs(code) > kLargestCode;
}

}  // namespace

qint64 DefinitionPage::currentCode() const {
    return m_rows.text(m_definition.fields.code).trimmed().toLongLong();
}

void DefinitionPage::requireCountableCode() {
    const QString& field = m_definition.fields.code;
    const QVariant stored = m_rows.originalValue(m_rows.columnIndex(field));
    if (isPastCounting(m_rows, field, currentCode()) && m_rows.value(field) != stored)
        refuseRow(kPastCounting.arg(currentCode()), field);
}

void DefinitionPage::beforeInsert() {
    if (m_definition.newRow == NewRow::AfterLastRow) {
        m_rows.last();
        if (isPastCounting(m_rows, m_definition.fields.code, currentCode() + 1))
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
        m_rows.setValue(kMonth, month());
}

void DefinitionPage::correctRow() {
    for (const auto& [field, limit] : m_definition.limits)
        this->limit(field);
}

// A number above the limit that is declared for it becomes the limit.
void DefinitionPage::limit(const QString& field) {
    for (const auto& [limited, limit] : m_definition.limits)
        if (limited.compare(field, Qt::CaseInsensitive) == 0 && m_rows.value(limited).toDouble() > limit)
            m_rows.setValue(limited, limit);
}

void DefinitionPage::ValidateRow() {
    m_rows.edit();
    correctRow();
    const PageMessages& messages = this->messages();
    const QString name = m_rows.text(m_definition.fields.name);
    if (!messages.emptyCode.isEmpty() && m_rows.text(m_definition.fields.code).trimmed().isEmpty())
        refuseRow(worded(messages.emptyCode),
                  m_columns.first().grid.readOnly ? QString() : m_definition.fields.code);
    requireCountableCode();
    if (!messages.emptyName.isEmpty() && Bare_Name(name).isEmpty())
        refuseRow(worded(messages.emptyName));
    for (const auto& [column, message] : m_definition.required)
        if (m_rows.text(column).trimmed().isEmpty())
            refuseRow(message);
    checkRow();
    if (!messages.repeatedName.isEmpty() &&
        Strip_Blanks(name) != Strip_Blanks(storedName(m_definition, m_rows)) &&
        (m_names ? m_names->isRepeated(m_rows, name) : isNameRepeated(db(), m_definition, m_rows, name)))
        refuseRow(worded(messages.repeatedName));
    if (m_names)
        m_names->take(m_rows, name);
}

void DefinitionPage::RememberRow() {
    LastCode = static_cast<qint32>(currentCode());
}

QVariant DefinitionPage::referredCode() {
    if (m_definition.kind == PageKind::Direct) {
        const std::optional<qint64> code = storedRowCode();
        return code ? QVariant(*code) : QVariant();
    }
    const qint64 code = copiedRow().code;
    return code != 0 ? QVariant(code) : QVariant();
}

bool DefinitionPage::isInUse() {
    const QVariant code = referredCode();
    return code.isValid() && isReferredTo(code);
}

bool DefinitionPage::isReferredTo(const QVariant& code) {
    for (const Reference& reference : referencesTo(referredTable())) {
        if (reference.as == HeldAs::Amounts) {
            const QString column = reference.column + code.toString();
            if (Is_Column_Exist(db(), reference.table, column) &&
                m_window.HasTurnover(reference.table, column))
                return true;
        } else if (!reference.keepsRow.isEmpty()) {
            QString statement = reference.keepsRow;
            if (Finds_Row(db(), statement.replace(QLatin1String("%1"), heldLiteral(reference, code))
                                    .replace(QLatin1String("%2"), data::quoted(month()))))
                return true;
        }
    }
    return false;
}

void DefinitionPage::DeleteRow() {
    if (m_rows.isEmpty() || m_definition.deletion == Deletion::Refused)
        return;
    const PageMessages& messages = this->messages();
    if (isInUse()) {
        showError(messages.inUse);
        adviseUsage(*this);
        return;
    }
    if (Show_Msg(messages.deleteQuestion, QString(), messages.deleteQuestionCode) != widgets::mrYes)
        return;
    const CopiedRow deleted = copiedRow();
    deleteAndRenumber();
    m_copy.forget(deleted);
    m_history.note();
}

void DefinitionPage::deleteAndRenumber() {
    const auto change = [this] {
        if (m_definition.kind == PageKind::Direct) {
            deleteShared();
        } else {
            const Renumbering left = m_ownLists.withoutCurrentRow();
            m_rows.deleteRow();
            if (!renumbers())
                return;
            renumber();
            if (m_definition.listsOwnRows)
                m_ownLists.renumber([&](qint64 code) { return left.now(code); });
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

// --- direct pages -----------------------------------------------------------------------------------
// Their rows are everybody's: other operators store, delete and move them while this one reads and types.
// What depends on all of them is worked out from those that the server has, in the transaction that changes
// them.

std::optional<qint64> DefinitionPage::storedRowCode() const {
    const QVariant code = m_rows.storedValue(m_definition.fields.code);
    return code.isValid() ? std::optional(code.toLongLong()) : std::nullopt;
}

qint64 DefinitionPage::lockRows() {
    data::Query query(db().Connection);
    query.setSql("Select Max(" + m_definition.fields.code + ") From " + data::bracketed(m_rows.tableName()) +
                 " With (TabLockX)" +
                 (m_definition.monthRows ? " Where Codemah=" + data::quoted(month()) : QString()));
    query.open();
    return query.integer(0);
}

void DefinitionPage::numberStoredRow() {
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
    if (isInUse())
        throw data::Refusal(worded(messages().inUse));
    m_rows.deleteRow();
    m_rows.refresh();
    if (!renumbers())
        return;
    QList<std::optional<qint64>> before;
    const int code = m_rows.columnIndex(m_definition.fields.code);
    for (int place = 0; place < m_rows.recordCount(); ++place) {
        const QVariant stored = m_rows.valueAt(place, code);
        before.append(stored.isValid() ? std::optional(stored.toLongLong()) : std::nullopt);
    }
    renumber();
    moves.codes = numberedByPlace(before);
    followMoves(moves);
}

}  // namespace definition
