// The tax page's own steps. Taxunit.cpp opens it and keeps its table; TaxRows.cpp has the rules of a row.
#pragma once

#include "ClearedRows.h"
#include "DefinitionPage.h"
#include "TaxBrackets.h"

namespace taxins {

using definition::Bracket;

class TFrmTax : public definition::DefinitionPage {
public:
    TFrmTax(const definition::PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
            QWidget* parent);

    void NumberNewRow() override;
    void ValidateRow() override;
    bool GridKeys(QKeyEvent& key) override;
    void ShowColumnHint() override;
    void BuildPopup() override;

protected:
    QList<Step> followUps() override;
    // A bracket's code is that of the row it was begun from, or the operator's own.
    void numberStoredRow() override {}
    void RememberRow() override;
    // Typing begins with the first key, wherever it is pressed.
    void ColumnMode(int) override {}
    void leaveColumn(int column) override;
    void doubleClick(int column) override;

private:
    double number(const QString& field) { return rows().value(field).toDouble(); }
    Bracket bracketAt(int row);
    void reloadRowAbove();
    void knowBracket();
    bool upperBoundWaits();
    void checkEnteredColumn();
    void calculateTax();
    bool derivePercent();
    bool workOut();
    void deleteTable();
    void restoreTable();
    void changeTable(void (ClearedRows::*change)(data::HostDatabase&));

    QPushButton* m_deleteTable;
    Bracket m_remembered;  // of the row left last, or of the one above; LastCode is its code
    Bracket m_known;       // the row's own as the page worked it out; where it is another, it was typed
    ClearedRows m_deleted;
};

}  // namespace taxins
