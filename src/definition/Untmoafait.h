// The tax exemption editor: a small modal window in which the operator says how an item is exempted
// from tax or how an allowance is made up, as shares of other items or as one fixed amount.
#pragma once

#include <functional>

#include "DataGrid.h"
#include "Dataset.h"
#include "DialogForm.h"
#include "EditHistory.h"
#include "SuiteHost.h"

class QCheckBox;
class QLineEdit;
class QRadioButton;

class TFrmMoafiat : public forms::DialogForm {
    Q_OBJECT

public:
    // `table` is the caller's work copy of the salary items, each item's share in `Fieldlen`. The
    // window drops it when it is destroyed.
    TFrmMoafiat(const SuiteHost& host, const QString& table);
    ~TFrmMoafiat() override;

    // The caller's row: the window reads and writes its list, and posts it, when a fixed amount can be
    // chosen. Set before the window is shown.
    data::Dataset* callerRows = nullptr;
    QString callerField = QStringLiteral("Perc_mal");
    QString callerMark;  // set along with the list; may be empty

    // Leaves only the list and the buttons; the caller then takes the list itself.
    void showOnlyList(const QString& caption);
    // The items with a share as (code_3*50)+(code_7*12.5); empty when none has one.
    QString itemList();
    // What was confirmed last: a list, an amount, or nothing.
    const QString& confirmed() const { return m_confirmed; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FormShow();
    void buildMenu();
    bool GridKeys(QKeyEvent& key);
    void choiceClick();
    void OkBtnClick();
    QString result();
    void storeAtCaller(const QString& text);
    void dropTable();

    data::HostDatabase& m_database;
    data::HostContext& m_context;
    data::Dataset MozdTable;
    definition::EditHistory m_history{MozdTable};
    widgets::DataGrid* m_grid = nullptr;
    QString m_confirmed;
    QWidget *plFix = nullptr, *plMain = nullptr;
    QLineEdit* FixEdit = nullptr;
    QCheckBox* chSum = nullptr;
    QRadioButton *rSabet = nullptr, *rMotagher = nullptr;
};

extern "C" TFrmMoafiat* _FrmMoafiat;
