// The tax page's own steps. Taxunit.cpp opens it and keeps its table; TaxRows.cpp has the rules of a row.
#pragma once

#include "ClearedRows.h"
#include "DefinitionPage.h"
#include "TaxBrackets.h"

namespace taxins {

class FrmTax : public definition::DefinitionPage {
public:
    FrmTax(BaseWindow& window, definition::DefinitionPage** variable, QWidget* parent);

    void NumberNewRow() override;
    void ValidateRow() override;
    bool GridKeys(QKeyEvent& key) override;
    void ShowColumnHint() override;
    void BuildPopup() override;

protected:
    QList<Step> FollowUps() override;
    // A bracket's code is that of the row it was begun from, or the operator's own.
    void NumberStoredRow() override {}
    void RememberLeftRow() override;
    // Typing begins with the first key, wherever it is pressed.
    void ColumnMode(int) override {}
    void ColumnExit(int column) override;
    void DoubleClick(int column) override;

private:
    double number(const QString& field) { return rows().value(field).toDouble(); }
    Bracket bracketAt(int row);
    void reloadRowAbove();
    void knowBracket();
    bool upperBoundWaits();
    void CheckEnteredColumn();
    void CalculateTax();
    bool DerivePercent();
    bool workOut();
    void DeleteTable();
    void RestoreTable();
    void changeTable(void (ClearedRows::*change)(data::HostDatabase&));

    QPushButton* m_deleteTable;
    Bracket m_remembered;  // of the row left last, or of the one above; LastCode is its code
    Bracket m_known;       // the row's own as the page worked it out; where it is another, it was typed
    ClearedRows m_deleted;
};

}  // namespace taxins
