#include "Untpadash.h"

#include <QFocusEvent>

#include "CoefficientPage.h"
#include "DefinitionPage.h"
#include "EarlierDebts.h"
#include "EntryKeys.h"
#include "EventBoundary.h"
#include "FrmPadash.h"

definition::DefinitionPage* _FrmPadash = nullptr;

namespace payitems {
namespace {

const QString kDebt = QStringLiteral("Desbefor");
const QString kDebtColumn = QStringLiteral("bedbefor");

bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_AltGr || key == Qt::Key_Meta || key == Qt::Key_CapsLock ||
           key == Qt::Key_NumLock || key == Qt::Key_Control || key == Qt::Key_Alt;
}

class TFrmPadash : public definition::DefinitionPage {
public:
    TFrmPadash(const definition::PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
               QWidget* parent);

    bool GridKeys(QKeyEvent& key) override;

protected:
    void correctRow() override;
    void ColumnMode(int column) override;
    void doubleClick(int column) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool onDebt();
    void readDebts() { m_debts.read(db(), month()); }
    void showDebts();
    void hideDebts();
    void chooseDebt();
    void takeDebt(const Debt& debt);
    void giveBackDebt();
    bool debtKeys(const QKeyEvent& key);

    widgets::Panel* plMozd = nullptr;
    widgets::DataGrid* DBGrid2 = nullptr;
    EarlierDebts m_debts;
};

TFrmPadash::TFrmPadash(const definition::PageDefinition& definition, BaseWindow& window,
                       DefinitionPage** variable, QWidget* parent)
    : DefinitionPage(definition, window, variable, parent),
      plMozd(component<widgets::Panel>(QStringLiteral("plMozd"))),
      DBGrid2(component<widgets::DataGrid>(QStringLiteral("DBGrid2"))) {
    plMozd->hide();
    grid().setPickList(plMozd);
    DBGrid2->setGridColumns({{.field = "Desk", .title = "شرح ", .width = 255}});
    DBGrid2->setEditing(false);
    DBGrid2->setDataset(&m_debts);
    DBGrid2->onKeyDown = [this](QKeyEvent& key) { return debtKeys(key); };
    DBGrid2->onDoubleClick = [this](int) { chooseDebt(); };
    DBGrid2->installEventFilter(this);
}

bool TFrmPadash::onDebt() {
    return grid().selectedColumn() == gridColumn(kDebt);
}

bool TFrmPadash::GridKeys(QKeyEvent& key) {
    const bool edits = key.key() == Qt::Key_Space || key.key() == Qt::Key_Backspace ||
                       key.key() == Qt::Key_Insert || isModifier(key.key());
    if (onDebt() && key.key() == Qt::Key_Escape)
        giveBackDebt();
    if (!onDebt() || definition::isEnter(key) || definition::movesAbout(key) || edits)
        return DefinitionPage::GridKeys(key);
    showDebts();
    return true;
}

void TFrmPadash::doubleClick(int column) {
    if (column == gridColumn(kDebt))
        showDebts();
    else
        DefinitionPage::doubleClick(column);
}

// The month's deductions, beside the cell that takes one.
void TFrmPadash::showDebts() {
    if (rows().isEmpty())
        return;
    grid().commitCell();
    readDebts();
    const QRect cell = grid().visualRect(grid().currentIndex());
    const QPoint corner = grid().viewport()->mapTo(this, cell.bottomLeft());
    const QSize room = size() - plMozd->size();
    plMozd->move(qBound(0, corner.x(), qMax(0, room.width())), qBound(0, corner.y(), qMax(0, room.height())));
    plMozd->show();
    plMozd->raise();
    DBGrid2->setFocus();
}

void TFrmPadash::hideDebts() {
    plMozd->hide();
    grid().setFocus();
}

bool TFrmPadash::debtKeys(const QKeyEvent& key) {
    if (definition::isEnter(key)) {
        chooseDebt();
        return true;
    }
    if (key.key() == Qt::Key_Escape) {
        hideDebts();
        return true;
    }
    return key.key() == Qt::Key_Delete || !definition::movesAbout(key);
}

void TFrmPadash::chooseDebt() {
    if (m_debts.isEmpty())
        return;
    const Debt debt = m_debts.at(m_debts.row());
    hideDebts();
    rows().edit();
    takeDebt(debt);
    rows().post();
}

// The name of a debt and the column of its amounts are one cell to the operator.
void TFrmPadash::takeDebt(const Debt& debt) {
    rows().setValue(kDebt, debt.name);
    rows().setValue(kDebtColumn, debt.column);
}

void TFrmPadash::giveBackDebt() {
    const int column = rows().columnIndex(kDebtColumn);
    if (rows().state() != data::Dataset::State::Browse)
        rows().setValue(column, rows().originalValue(column));
}

// A debt that is taken out of its cell is not settled behind the operator's back, and one that is pasted
// is as good as chosen.
void TFrmPadash::correctRow() {
    DefinitionPage::correctRow();
    const QString debt = rows().text(kDebt), column = rows().text(kDebtColumn);
    const auto original = [this](const QString& field) {
        return rows().originalValue(rows().columnIndex(field));
    };
    const bool changed = rows().value(kDebt) != original(kDebt);
    if (debt.trimmed().isEmpty()) {
        if (!column.isEmpty())
            rows().setValue(kDebtColumn, QString());
        return;
    }
    if (!changed && rows().value(kDebtColumn) == original(kDebtColumn))
        return;
    readDebts();
    if (const std::optional<Debt> found = m_debts.named(debt, column))
        takeDebt(*found);
    else if (changed)
        refuseRow("«" + debt.trimmed() + "» از كسور اين ماه نيست. بدهكاري قبلي را از فهرست انتخاب كنيد.",
                  kDebt);
    else
        giveBackDebt();
}

// The list goes when it is left: for the page's own grid, for another page, or for anything else.
void TFrmPadash::ColumnMode(int column) {
    plMozd->hide();
    DefinitionPage::ColumnMode(column);
}

bool TFrmPadash::eventFilter(QObject* watched, QEvent* event) {
    if (watched == DBGrid2 && (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide))
        plMozd->hide();
    return DefinitionPage::eventFilter(watched, event);
}

}  // namespace

const definition::PageDefinition& frmPadash() {
    static const definition::PageDefinition page = [] {
        auto definition = coefficientPage(forms::frmPadash(), "Padash", "Padash", " مشخصات  پاداش");
        definition.messages.inUse = QStringLiteral("اين رديف داراي گردش است ");
        definition.make = definition::made<TFrmPadash>;
        return definition;
    }();
    return page;
}

}  // namespace payitems
