// Bonus: its kinds, their limits and tax, and the earlier debt that each settles, chosen among the
// month's deductions.
#pragma once

#include "DefinitionPage.h"

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
    bool debtKeys(const QKeyEvent& key);

    widgets::Panel* plMozd = nullptr;
    widgets::DataGrid* DBGrid2 = nullptr;
    data::Dataset m_debts;
};

}  // namespace payitems
