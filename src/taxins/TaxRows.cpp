// The rows of the tax table: what a new one starts with, what is worked out, and what is refused.
#include "EntryKeys.h"
#include "TaxPage.h"

namespace taxins {
namespace {

using data::Dataset;

// The grid's columns by their index, and the fields behind them.
enum Column { kFromColumn = 1, kToColumn, kPercentColumn, kTaxColumn, kShareColumn = 8 };
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

Bracket FrmTax::bracketAt(int row) {
    const auto value = [&](const QString& field) {
        return rows().valueAt(row, rows().columnIndex(field)).toDouble();
    };
    return {value(kFrom), value(kTo), value(kPercent), value(kTax)};
}

void FrmTax::RememberLeftRow() {
    m_remembered = bracketAt(rows().row());
    if (!rows().text(kCode).isEmpty())
        LastCode = static_cast<qint32>(currentCode());
}

void FrmTax::reloadRowAbove() {
    const int above = rows().row() - 1;
    m_remembered = bracketAt(above);
    LastCode = rows().valueAt(above, rows().columnIndex(kCode)).toInt();
}

void FrmTax::knowBracket() {
    m_known = bracketAt(rows().row());
}

void FrmTax::NumberNewRow() {
    const bool only = rows().recordCount() == 1;
    rows().setValue(kCode, only ? 1 : LastCode);
    rows().setValue(kFrom, only ? 1 : boundAbove(m_remembered.to));
    for (const QString& field : {kTo, kPercent, kTax, kShare})
        rows().setValue(field, 0);
    knowBracket();
}

void FrmTax::ValidateRow() {
    rows().edit();
    workOut();
    requireCountableCode();
    if (number(kTo) < number(kFrom))
        refuseRow(QStringLiteral("مبالغ ابتدا و انتهاي محدوده بدرستي انتخاب نشده است"), kToColumn);
    if (!isPercent(number(kPercent)))
        refuseRow(kPercentInvalid, kPercentColumn);
    if (!isPercent(number(kShare)))
        refuseRow(QStringLiteral("درصد سهم كارفرما معتبر نيست"), kShareColumn);
}

// --- what is worked out ---------------------------------------------------------------------------

bool FrmTax::GridKeys(QKeyEvent& key) {
    const bool undoes = key.key() == Qt::Key_Escape && rows().isEmpty() && !m_deleted.isEmpty();
    if (undoes) {
        RestoreTable();
        return true;
    }
    const bool dealtWith = DefinitionPage::GridKeys(key);
    if (definition::isEnter(key))
        CheckEnteredColumn();
    return dealtWith;
}

// A new row's upper bound is not wrong as long as it has not been reached.
bool FrmTax::upperBoundWaits() {
    return rows().state() == Dataset::State::Insert && number(kTo) == 0 &&
           rows().originalValue(rows().columnIndex(kTo)).toDouble() == 0;
}

void FrmTax::CheckEnteredColumn() {
    const int column = grid().selectedColumn();
    if (rows().isEmpty() || upperBoundWaits())
        return;
    const bool bound = column == kFromColumn || column == kToColumn;
    if (bound && number(kTo) < number(kFrom)) {
        showError(QStringLiteral("مبلغ محدوده بدرستي انتخاب نشده است"));
        rows().setValue(kTo, 0);
    }
    const bool calculates = column == kPercentColumn || column == kTaxColumn ||
                            (column == kToColumn && !rows().text(kPercent).isEmpty());
    if (!calculates || !rows().modified())
        return;
    CalculateTax();
    if (column == kTaxColumn)
        DerivePercent();
    rows().post();
}

void FrmTax::CalculateTax() {
    if (!isPercent(number(kPercent)))
        refuseRow(kPercentInvalid, kPercentColumn);
    reloadRowAbove();
    const Bracket bracket = bracketAt(rows().row());
    if (bracket.percent == 0)
        rows().setValue(kTax, 0);
    else if (bracket.to > 0)
        rows().setValue(kTax, cumulativeTax(bracket, m_remembered.tax));
    knowBracket();
}

// False where the bracket has no width to spread a tax over; the cursor is at its upper bound then.
bool FrmTax::DerivePercent() {
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
        grid().selectColumn(kToColumn);
    return !narrow;
}

// What follows from what was typed: the percent from a tax, the tax from a percent or a bound. A bracket
// whose bounds are not there yet waits for them. False where DerivePercent is.
bool FrmTax::workOut() {
    const bool editing = rows().state() == Dataset::State::Edit || rows().state() == Dataset::State::Insert;
    const Bracket now = bracketAt(rows().row());
    if (!editing || now == m_known)
        return true;
    if (now.tax != m_known.tax) {
        reloadRowAbove();
        return DerivePercent();
    }
    if (isPercent(now.percent) && now.to > 0 && now.to >= now.from)
        CalculateTax();
    return true;
}

void FrmTax::ColumnExit(int column) {
    if (column >= kFromColumn && column <= kTaxColumn && !workOut())
        throw data::SilentAbort();
}

}  // namespace taxins
