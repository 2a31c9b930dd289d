// The window in which the layout of an outgoing file is edited: one for all families.
#pragma once

#include "AdviceLabel.h"
#include "Components.h"
#include "Dataset.h"
#include "DialogForm.h"
#include "EditHistory.h"
#include "EventBoundary.h"
#include "LayoutDefinition.h"
#include "SuiteHost.h"

namespace layouts {

class LayoutWindow : public forms::DialogForm {
    Q_OBJECT

public:
    // Shows the window modally, unless `variable`, the exported one of its form, holds a window. It
    // holds this one for as long as it is shown.
    static void open(const SuiteHost& host, const LayoutDefinition& family, const LayoutFile& file,
                     widgets::Form*& variable);

    ~LayoutWindow() override;

private:
    LayoutWindow(const SuiteHost& host, const LayoutDefinition& family, const LayoutFile& file,
                 widgets::Form*& variable);

    void buildGrid();
    void connectEvents();
    void FormShow();
    void addMissingRows();
    void place();
    bool FormClose();

    bool GridKeys(QKeyEvent& key);
    void pressEnter();
    void pressSpace();
    void doubleClick(int column);
    void leaveColumn(int column);
    void showColumnState();
    void advise();
    void enterCell();
    QString fieldAt(int column) const;
    // The column that shows the field, which every family has.
    int columnOf(const QString& field) const;
    bool isCycle(int column) const;
    bool mayType(int column) const;

    void ValidateRow();
    void checkLength();
    void DeleteRow();
    void newStructure();

    // the menu (LayoutMenu.cpp)
    void BuildPopup();
    void Help();
    void Search();
    void CopyGrid();
    void CopyRow();
    void PasteRow();
    void CopyCell();
    void PasteCell();
    void Print();
    void Preview();

    bool hasSource() const;
    // The columns of the current row that another row's values do not take the place of.
    QStringList keptInRow() const;

    data::HostDatabase& m_database;
    data::HostContext& m_context;
    const LayoutDefinition& m_family;
    const LayoutFile m_file;
    widgets::Form*& m_variable;
    widgets::DataGrid* m_grid = nullptr;
    widgets::Panel* m_status = nullptr;
    forms::AdviceLabel* m_advice = nullptr;
    data::Dataset m_rows;
    definition::EditHistory m_history{m_rows};
    QVariant m_entered;  // the selected cell as it was when it was entered
    widgets::IndependentSteps m_opening{*this};
    QString m_rowMemory;     // the row copied last
    QString m_searchMemory;  // the texts searched for last, by column
};

}  // namespace layouts
