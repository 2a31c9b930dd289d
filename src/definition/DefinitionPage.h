// The editable definition grid: one form, driven by a PageDefinition, for every page of the window.
#pragma once

#include "AmountMove.h"
#include "BaseWindow.h"
#include "CodesByPlace.h"
#include "Components.h"
#include "Dataset.h"
#include "Errors.h"
#include "Form.h"
#include "GridState.h"
#include "PageDefinition.h"
#include "WorkCopy.h"

class QPushButton;
struct TGridProperty;

namespace definition {

// What a deletion has done to the rows of a direct page, those of other operators among them.
struct RowMoves {
    int deletedPlace = 0;  // where the row stood, as operators count; 0 for one that was not stored
    CodeChanges codes;
};

class DefinitionPage : public widgets::Form {
    Q_OBJECT

public:
    // `variable` is the page's exported form variable; the page clears it when it goes.
    DefinitionPage(const PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
                   QWidget* parent);
    ~DefinitionPage() override;

    const PageDefinition& definition() const { return m_definition; }
    widgets::DataGrid& grid() { return *m_grid; }
    data::Dataset& rows() { return m_rows; }

    // --- the page's operations, in the order of an operator's work ---------------------------------
    virtual void OpenPage();
    virtual void ActivatePage();
    virtual void NumberNewRow();
    virtual void ValidateRow();
    virtual void DeleteRow();
    // A key pressed in the grid: true when the page has dealt with it.
    virtual bool GridKeys(QKeyEvent& key);
    virtual void ShowColumnHint();
    virtual void BuildPopup();
    virtual void PostErrorHandler(const data::ServerError& error);
    virtual void ConfirmPage();
    // Drops the page's work tables; called before the page is destroyed.
    virtual void ClosePage();

protected:
    // --- where a page departs ----------------------------------------------------------------------
    // Makes or opens the page's data; on the first show.
    virtual void OpenData();
    // What a further show does to data that is open: direct pages read theirs again.
    virtual void ReopenData();
    // The columns that the grid shows now: the declaration's, and the extra ones behind them.
    virtual QList<forms::PageColumn> GridColumns();
    virtual QList<forms::PageColumn> ExtraColumns();
    // A text of the declaration with what only the open page knows put into it.
    virtual QString worded(const QString& text) const { return text; }
    // The page's own corrections before a row is checked.
    virtual void CorrectRow();
    // The page's own refusals, between the test for an empty name and that for a repeated one.
    virtual void CheckRow() {}
    // Whether the current row is needed elsewhere, so that it cannot be deleted.
    virtual bool InUse();
    // Whether a deletion moves the rows behind up.
    virtual bool Renumbers() const { return m_definition.deletion == Deletion::Renumbers; }
    // The codes of the work copy's rows: as they are, and as they were when it was made.
    virtual QList<ItemCode> itemCodes();
    // What follows the items' codes when a work copy is confirmed, in the same transaction.
    virtual void FollowConfirm(const QList<ItemCode>& items);
    // The items are stored and their codes the copy's own. Nothing that can fail is done here.
    virtual void Confirmed(const QList<ItemCode>&) {}
    // What follows the codes of a work copy's rows when a deletion has renumbered them, in the same
    // transaction; those that moved.
    virtual void FollowRenumbering(const QList<ItemCode>&) {}
    // What follows the rows of a direct page when a deletion has moved them, in the same transaction.
    virtual void FollowMoves(const RowMoves&) {}
    // Gives a direct page's new row, in the transaction in which it is stored, the number behind the
    // highest that the server has then: another operator may have stored the one that it shows.
    virtual void NumberStoredRow();
    // Completes what the page tells the menu object of its grid, before the menu is built.
    virtual void DescribeGrid(TGridProperty&) {}
    // The words of the page as it is now.
    virtual const PageMessages& messages() const { return m_definition.messages; }
    // What the page keeps of the row that is being left.
    virtual void RememberLeftRow();
    // Whether the column can be typed into, decided when it is entered or clicked.
    virtual void ColumnMode(int column);
    // The corrections of a column when it is left.
    virtual void ColumnExit(int column);
    virtual void DoubleClick(int column);

    // --- for the pages' own steps -------------------------------------------------------------------
    // Shows the declaration's columns and the extra ones, in the operator's stored layout. No effect
    // while they are the ones that the grid has.
    void showColumns();
    // The names of the month's salary items, in code order.
    QStringList itemNames() const;
    // Makes the rows of `table` those of the page.
    void openTable(const QString& table);
    // Deletes the current row and, where the page does so, renumbers those that stay; all or nothing.
    virtual void deleteAndRenumber();
    // Whether another row has the name, blanks and kashida apart.
    bool nameRepeated(const QString& name);
    qint64 currentCode() const;
    // The current row's code as the server has it now; none for a new row and for one without a code.
    std::optional<qint64> storedRowCode() const;
    // Adds an entry about the current row to the menu that has just been built; without rows it is
    // disabled.
    void addRowEntry(const QString& caption, const QKeySequence& shortcut, std::function<void()> action);
    // Shows an error message; nothing else.
    static void showError(const QString& text);
    // The mark of a column, toggled; its detail list goes with it.
    void ToggleMark(int column);
    // Shows an error message and goes to the column. False when the page went while the message stood.
    bool showErrorAt(const QString& text, int column);
    // The same, and abandons the post; the row stays in edit.
    [[noreturn]] void refuseRow(const QString& text, int column = 1);
    // Whether the space bar changes the column, and no letter: a mark or a cycle.
    bool isMark(int column) const;
    // Whether the current row has the mark of that field.
    bool isMarked(const QString& field) const;
    // The grid's column that shows the field; -1 for none.
    int gridColumn(const QString& field) const;

    BaseWindow& m_window;
    qint32 LastCode = 0;  // code of the row left last; the next new row counts on from it

private:
    void buildComponents();
    void connectEvents();
    void beforeInsert();
    void RememberRow();
    void rememberDescription();
    void pressSpace(bool fromGrid);
    void stepCycle(int column);
    QString listItems() const;
    void editDetailList(int column);
    void restoreDetailList(int column);
    void copyMonth();
    void addItemColumns(const QString& table);
    void renewItemMarks();
    void setGridColumns();
    GridStateKey layoutKey() const;
    void storeWorkCopy();
    // Keeps everybody else from changing the table until the transaction ends. The highest code in it.
    qint64 lockRows();
    // A direct page's part of a deletion; `row` becomes the place that the row has by now.
    void deleteShared(int& row);
    QList<ItemCode> renumber();

    const PageDefinition& m_definition;
    DefinitionPage** m_variable;
    widgets::DataGrid* m_grid = nullptr;
    widgets::Panel* m_status = nullptr;
    QPushButton* m_confirm = nullptr;
    data::Dataset m_rows;
    WorkCopy m_copy;
    QList<forms::PageColumn> m_columns;  // the declaration's, and the extra ones behind them
    bool m_laidOut = false;              // the operator's stored layout has been given to them
    QString OldDesk;                     // name of the row as it was stored
};

}  // namespace definition
