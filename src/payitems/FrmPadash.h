// Bonus: its kinds, their limits and tax, and the earlier debt that each settles, chosen among the
// month's deductions.
#pragma once

#include "DefinitionPage.h"
#include "EarlierDebts.h"

namespace payitems {

const definition::PageDefinition& frmPadash();

class TFrmPadash : public definition::DefinitionPage {
    Q_OBJECT

public:
    TFrmPadash(const definition::PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
               QWidget* parent);

    bool GridKeys(QKeyEvent& key) override;

protected:
    void CorrectRow() override;
    void ColumnMode(int column) override;
    void DoubleClick(int column) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool onDebt();
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

}  // namespace payitems
