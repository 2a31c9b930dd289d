// The rows of the tax table: what a new one starts with, what is worked out, and what is refused.
#include "EntryKeys.h"
#include "TaxPage.h"

namespace taxins {
namespace {

using data::Dataset;
using definition::boundAbove;
using definition::cumulativeTax;
using definition::taxPercent;

const QString kCode = QStringLiteral("Code");
const QString kFrom = QStringLiteral("Mablagh_1");
const QString kTo = QStringLiteral("Mablagh_2");
const QString kPercent = QStringLiteral("Percent");
const QString kTax = QStringLiteral("Mab_tax");
const QString kShare = QStringLiteral("Percent_k");

const QString kPercentInvalid = QStringLiteral("درصد ماليات معتبر نيست");

bool isPercent(double number) {
    return number >= 0 && number <= 100;
}

}  // namespace

Bracket TFrmTax::bracketAt(int row) {
    const auto value = [&](const QString& field) {
        return rows().valueAt(row, rows().columnIndex(field)).toDouble();
    };
    return {value(kFrom), value(kTo), value(kPercent), value(kTax)};
}

void TFrmTax::RememberRow() {
    m_remembered = bracketAt(rows().row());
    if (!rows().text(kCode).isEmpty())
        LastCode = static_cast<qint32>(currentCode());
}

void TFrmTax::reloadRowAbove() {
    const int above = rows().row() - 1;
    m_remembered = bracketAt(above);
    LastCode = rows().valueAt(above, rows().columnIndex(kCode)).toInt();
}

void TFrmTax::knowBracket() {
    m_known = bracketAt(rows().row());
}

void TFrmTax::NumberNewRow() {
    const bool only = rows().recordCount() == 1;
    rows().setValue(kCode, only ? 1 : LastCode);
    rows().setValue(kFrom, only ? 1 : boundAbove(m_remembered.to));
    for (const QString& field : {kTo, kPercent, kTax, kShare})
        rows().setValue(field, 0);
    knowBracket();
}

void TFrmTax::ValidateRow() {
    rows().edit();
    workOut();
    requireCountableCode();
    if (number(kTo) < number(kFrom))
        refuseRow(QStringLiteral("مبالغ ابتدا و انتهاي محدوده بدرستي انتخاب نشده است"), kTo);
    if (!isPercent(number(kPercent)))
        refuseRow(kPercentInvalid, kPercent);
    if (!isPercent(number(kShare)))
        refuseRow(QStringLiteral("درصد سهم كارفرما معتبر نيست"), kShare);
}

// --- what is worked out ---------------------------------------------------------------------------

bool TFrmTax::GridKeys(QKeyEvent& key) {
    const bool undoes = key.key() == Qt::Key_Escape && rows().isEmpty() && !m_deleted.isEmpty();
    if (undoes) {
        restoreTable();
        return true;
    }
    const bool dealtWith = DefinitionPage::GridKeys(key);
    if (definition::isEnter(key))
        checkEnteredColumn();
    return dealtWith;
}

// A new row's upper bound is not wrong as long as it has not been reached.
bool TFrmTax::upperBoundWaits() {
    return rows().state() == Dataset::State::Insert && number(kTo) == 0 &&
           rows().originalValue(rows().columnIndex(kTo)).toDouble() == 0;
}

void TFrmTax::checkEnteredColumn() {
    const QString column = fieldAt(grid().selectedColumn());
    if (rows().isEmpty() || upperBoundWaits())
        return;
    const bool bound = column == kFrom || column == kTo;
    if (bound && number(kTo) < number(kFrom)) {
        showError(QStringLiteral("مبلغ محدوده بدرستي انتخاب نشده است"));
        rows().setValue(kTo, 0);
    }
    const bool calculates =
        column == kPercent || column == kTax || (column == kTo && !rows().text(kPercent).isEmpty());
    if (!calculates || !rows().modified())
        return;
    calculateTax();
    if (column == kTax)
        derivePercent();
    rows().post();
}

void TFrmTax::calculateTax() {
    if (!isPercent(number(kPercent)))
        refuseRow(kPercentInvalid, kPercent);
    reloadRowAbove();
    const Bracket bracket = bracketAt(rows().row());
    if (bracket.percent == 0)
        rows().setValue(kTax, 0);
    else if (bracket.to > 0)
        rows().setValue(kTax, cumulativeTax(bracket, m_remembered.tax));
    knowBracket();
}

// False where the bracket has no width to spread a tax over; the cursor is at its upper bound then.
bool TFrmTax::derivePercent() {
    const Bracket bracket = bracketAt(rows().row());
    const bool narrow = bracket.tax != 0 && bracket.to > 0 && bracket.to <= bracket.from;
    if (narrow)
        rows().setValue(kTax, 0);
    if (narrow || bracket.tax == 0)
        rows().setValue(kPercent, 0);
    else if (bracket.to > 0)
        rows().setValue(kPercent, taxPercent(bracket, m_remembered.tax));
    else
        return true;  // once it has an upper bound
    knowBracket();
    if (narrow)
        grid().selectColumn(gridColumn(kTo));
    return !narrow;
}

// What follows from what was typed: the percent from a tax, the tax from a percent or a bound. A bracket
// whose bounds are not there yet waits for them. False where DerivePercent is.
bool TFrmTax::workOut() {
    const bool editing = rows().state() == Dataset::State::Edit || rows().state() == Dataset::State::Insert;
    const Bracket now = bracketAt(rows().row());
    if (!editing || now == m_known)
        return true;
    if (now.tax != m_known.tax) {
        reloadRowAbove();
        return derivePercent();
    }
    if (isPercent(now.percent) && now.to > 0 && now.to >= now.from)
        calculateTax();
    return true;
}

void TFrmTax::leaveColumn(int column) {
    const QString field = fieldAt(column);
    const bool ofBracket = field == kFrom || field == kTo || field == kPercent || field == kTax;
    if (ofBracket && !workOut())
        throw data::SilentAbort();
}

}  // namespace taxins
