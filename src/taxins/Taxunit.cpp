#include "Taxunit.h"

#include <QPushButton>

#include "ClearedRows.h"
#include "EntryKeys.h"
#include "EventBoundary.h"
#include "FrmTax.h"
#include "Malyobjectunit.h"
#include "ModuleVariables.h"
#include "TaxBrackets.h"
#include "Untdefmalydisk.h"

namespace taxins {
namespace {

using data::Dataset;

// The grid's columns by their index, and the fields behind them.
enum Column { kFromColumn = 1, kToColumn, kPercentColumn, kTaxColumn, kFilesColumn, kShareColumn = 8 };
const QString kCode = QStringLiteral("Code");
const QString kFrom = QStringLiteral("Mablagh_1");
const QString kTo = QStringLiteral("Mablagh_2");
const QString kPercent = QStringLiteral("Percent");
const QString kTax = QStringLiteral("Mab_tax");
const QString kShare = QStringLiteral("Percent_k");

const QString kPercentInvalid = QStringLiteral("درصد ماليات معتبر نيست");

const definition::PageDefinition& declaration() {
    static const definition::PageDefinition page = {
        .layout = &forms::frmTax(),
        .kind = definition::PageKind::Direct,
        .table = QStringLiteral("Tax"),
        .fields = {.code = kCode, .name = {}, .order = {}},
        .newRow = definition::NewRow::FromAnyRow,
        .deletion = definition::Deletion::NotOffered,
        .messages = {},
        .tellsRepeatedKeys = false,
        .pageKey = QStringLiteral("Tax"),
        .reportTitle = QStringLiteral(" مشخصات ماليات "),
    };
    return page;
}

constexpr int kRestoreImage = -1;

// The layouts behind the columns of file names, in their order.
struct FileLayout {
    QString table, caption;
};
const FileLayout kFiles[] = {{"BCK_TAX1", "         اطلاعات حقوق بگير"},
                             {"BCK_TAX2", "         اقلام حقوق و دستمزد"},
                             {"BCK_TAX3", "         اطلاعات فايل خلاصه"}};

bool isPercent(double number) {
    return number >= 0 && number <= 100;
}

class FrmTax : public definition::DefinitionPage {
public:
    FrmTax(BaseWindow& window, definition::DefinitionPage** variable, QWidget* parent);

    void OpenPage() override;
    void NumberNewRow() override;
    void ValidateRow() override;
    bool GridKeys(QKeyEvent& key) override;
    void ShowColumnHint() override;
    void BuildPopup() override;
    void ClosePage() override;

protected:
    void RememberLeftRow() override;
    // Typing begins with the first key, wherever it is pressed.
    void ColumnMode(int) override {}
    void ColumnExit(int column) override;
    void DoubleClick(int column) override;

private:
    double number(const QString& field) { return rows().value(field).toDouble(); }
    Bracket bracketAt(int row);
    void reloadRowAbove();
    bool upperBoundWaits();
    void CheckEnteredColumn();
    void CalculateTax();
    bool DerivePercent();
    bool deriveFromTypedTax();
    void DeleteTable();
    void RestoreTable();
    void showRowsAnew();

    QPushButton* m_deleteTable;
    Bracket m_remembered;  // of the row left last, or of the one above; LastCode is its code
    QVariant m_knownTax;   // the row's tax as the page knows it; where it is another, it has been typed
    ClearedRows m_deleted;
};

FrmTax::FrmTax(BaseWindow& window, definition::DefinitionPage** variable, QWidget* parent)
    : DefinitionPage(declaration(), window, variable, parent), m_deleted(declaration().table) {
    grid().setEditing(false);
    rows().afterEdit = [this] { m_knownTax = rows().value(kTax); };
    m_deleteTable = component<QPushButton>(forms::kDeleteTaxTable);
    m_deleteTable->setEnabled(false);
    connect(m_deleteTable, &QPushButton::clicked, this,
            [this] { widgets::EventBoundary::run([this] { DeleteTable(); }); });
}

void FrmTax::OpenPage() {
    DefinitionPage::OpenPage();
    if (rows().active())
        layouts::prepareTaxLayouts(*_MyDatabase);
}

void FrmTax::ShowColumnHint() {
    DefinitionPage::ShowColumnHint();
    m_deleteTable->setEnabled(!rows().isEmpty());
}

void FrmTax::DoubleClick(int column) {
    const int file = column - kFilesColumn;
    if (file >= 0 && file < static_cast<int>(std::size(kFiles)))
        layouts::openTaxLayout(kFiles[file].table, kFiles[file].caption);
}

// A row that is still in edit is stored before the page goes.
void FrmTax::ClosePage() {
    rows().checkBrowseMode();
    DefinitionPage::ClosePage();
}

// --- rows -------------------------------------------------------------------------------------------

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

void FrmTax::NumberNewRow() {
    const bool only = rows().recordCount() == 1;
    rows().setValue(kCode, only ? 1 : LastCode);
    rows().setValue(kFrom, only ? 1 : m_remembered.to + 1);
    for (const QString& field : {kTo, kPercent, kTax, kShare})
        rows().setValue(field, 0);
    m_knownTax = rows().value(kTax);
}

void FrmTax::ValidateRow() {
    rows().edit();
    deriveFromTypedTax();
    if (number(kTo) < number(kFrom))
        refuseRow(QStringLiteral("مبالغ ابتدا و انتهاي محدوده بدرستي انتخاب نشده است"), kToColumn);
    if (!isPercent(number(kPercent)))
        refuseRow(kPercentInvalid, kPercentColumn);
    if (!isPercent(number(kShare)))
        refuseRow(QStringLiteral("درصد سهم كارفرما معتبر نيست"), kShareColumn);
}

// --- what Enter works out ---------------------------------------------------------------------------

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
    m_knownTax = rows().value(kTax);
}

// False where the bracket has no width to spread a tax over; the cursor is at its upper bound then.
bool FrmTax::DerivePercent() {
    const Bracket bracket = bracketAt(rows().row());
    const bool wide = bracket.to > bracket.from;
    if (bracket.tax == 0) {
        rows().setValue(kPercent, 0);
    } else if (bracket.to > 0) {
        rows().setValue(kPercent, wide ? taxPercent(bracket, m_remembered.tax) : 0);
        if (!wide)
            rows().setValue(kTax, 0);
    }
    m_knownTax = rows().value(kTax);
    if (bracket.tax == 0 || bracket.to <= 0 || wide)
        return true;
    grid().selectColumn(kToColumn);
    return false;
}

bool FrmTax::deriveFromTypedTax() {
    const bool editing = rows().state() == Dataset::State::Edit || rows().state() == Dataset::State::Insert;
    if (!editing || rows().value(kTax) == m_knownTax)
        return true;
    reloadRowAbove();
    return DerivePercent();
}

void FrmTax::ColumnExit(int column) {
    if (column == kTaxColumn && !deriveFromTypedTax())
        throw data::SilentAbort();
}

// --- the whole table --------------------------------------------------------------------------------

void FrmTax::DeleteTable() {
    rows().cancel();
    if (rows().isEmpty())
        return;
    m_deleted.clear(*_MyDatabase);
    m_remembered = {};
    LastCode = 0;
    showRowsAnew();
}

void FrmTax::RestoreTable() {
    rows().checkBrowseMode();
    m_deleted.restore(*_MyDatabase);
    showRowsAnew();
}

void FrmTax::showRowsAnew() {
    rows().refresh();
    rows().first();
    ShowColumnHint();
    grid().setFocus();
}

void FrmTax::BuildPopup() {
    DefinitionPage::BuildPopup();
    if (rows().active() && !m_deleted.isEmpty())
        TMalyObject::Add_Item(*grid().popupMenu(), QStringLiteral("بازگشت جدول حذف شده"), kRestoreImage, {},
                              [this] { RestoreTable(); });
}

}  // namespace

definition::DefinitionPage* frmTax(BaseWindow& window, definition::DefinitionPage** variable,
                                   QWidget* parent) {
    return new FrmTax(window, variable, parent);
}

}  // namespace taxins
