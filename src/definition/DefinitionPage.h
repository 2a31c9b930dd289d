// The editable definition grid: one form, driven by a PageDefinition, for every page of the window.
#pragma once

#include "AdviceLabel.h"
#include "BaseWindow.h"
#include "CodesByPlace.h"
#include "Components.h"
#include "Dataset.h"
#include "EditHistory.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "Form.h"
#include "GridState.h"
#include "ItemMarks.h"
#include "MarkCells.h"
#include "OwnLists.h"
#include "PageDefinition.h"
#include "RowNames.h"
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
    const data::Dataset& rows() const { return m_rows; }

    // --- the page's operations, in the order of an operator's work ---------------------------------
    // On every show: the rows, the columns, the hint and the focus come first, followUps behind them. What
    // fails of it is told at the end, stops nothing else, and is tried again on the next show.
    virtual void OpenPage();
    virtual void ActivatePage();
    virtual void NumberNewRow();
    virtual void ValidateRow();
    // What the page keeps of the row that is being left.
    virtual void RememberRow();
    virtual void DeleteRow();
    // A key pressed in the grid: true when the page has dealt with it.
    virtual bool GridKeys(QKeyEvent& key);
    // Whether the column can be typed into, decided when it is entered or clicked.
    virtual void ColumnMode(int column);
    virtual void ShowColumnHint();
    virtual void BuildPopup();
    virtual void PostErrorHandler(const data::ServerError& error);
    virtual void ConfirmPage();
    // Drops the page's work tables, and a row in edit; called before the page is destroyed.
    virtual void ClosePage();
    // Stores the row in edit of a direct page, and drops one that nothing was typed into. False when it
    // was refused and the operator has read why; the row is still in edit then.
    bool storeRow();

    // --- for what is offered besides (PageFeatures.h) -----------------------------------------------
    SuiteHost host() const { return m_window.Host(); }
    data::HostDatabase& db() const { return *host().database; }
    data::HostContext& global() const { return *host().context; }
    const QString& month() const { return m_window.Month_Curent(); }
    BaseWindow& window() const { return m_window; }
    const QList<forms::PageColumn>& columns() const { return m_columns; }
    // The grid's column that shows the field; -1 for none. And the field that a column shows.
    int gridColumn(const QString& field) const;
    QString shownText(int column, const QVariant& value) const { return m_grid->shownText(column, value); }
    QString fieldAt(int column) const { return m_columns.value(column).grid.field; }
    MarkCells& marks() { return m_marks; }
    WorkCopy& copy() { return m_copy; }
    EditHistory& history() { return m_history; }
    // The code by which others know the current row, as it is stored now; invalid for one that is not.
    virtual QVariant referredCode();
    // The table whose rows these are to those who refer to them.
    QString referredTable() const {
        return m_definition.kind == PageKind::WorkCopy ? m_definition.table : m_rows.tableName();
    }
    // The stored row that the current one of a work copy is; none for a new one.
    CopiedRow copiedRow() const { return m_copy.current(m_rows); }
    // A text of the declaration with what only the open page knows put into it.
    virtual QString worded(const QString& text) const { return text; }
    // At the far end of the status line, until the operator goes on to another row; a click follows it up.
    void advise(const QString& text, std::function<void()> follow = {});
    // What its confirmation would do now; of a page with a work copy.
    ConfirmPlan planConfirm(ConfirmPlan::Counts counts = ConfirmPlan::Counts::None);
    // The detail list of a mark, in its editor; SilentAbort when he gives up. False when he confirmed an
    // empty one, which is not stored.
    bool editDetailList(const forms::PageColumn& mark);

protected:
    // --- where a page departs ----------------------------------------------------------------------
    // Opening. Makes or opens the page's data, until it has succeeded once; whatever of it the rows can do
    // without is a step of opening().
    virtual void openData();
    // What a further show does to data that is open: direct pages read theirs again.
    virtual void reopenData();
    // What follows when the page shows what it has, on every show; none needs another, or the rows.
    using Step = std::function<void()>;
    virtual QList<Step> followUps();
    // The columns that the grid shows now: the declaration's, and the extra ones behind them.
    virtual QList<forms::PageColumn> shownColumns();
    virtual QList<forms::PageColumn> extraColumns();
    // The words of the page as it is now.
    virtual const PageMessages& messages() const { return m_definition.messages; }
    // Completes what the page tells the menu object of its grid, before the menu is built.
    virtual void describeGrid(TGridProperty&) {}

    // Rows. The page's own corrections before a row is checked.
    virtual void correctRow();
    // The page's own refusals, between the test for an empty name and that for a repeated one.
    virtual void checkRow() {}
    // Gives a direct page's new row, in the transaction in which it is stored, the number behind the
    // highest that the server has then: another operator may have stored the one that it shows.
    virtual void numberStoredRow();
    // Whether the current row is needed elsewhere, so that it cannot be deleted.
    virtual bool isInUse();
    // Whether one of those who refer to the page's rows needs the row with this code.
    bool isReferredTo(const QVariant& code);
    // Whether a deletion moves the rows behind up.
    virtual bool renumbers() const { return m_definition.deletion == Deletion::Renumbers; }
    // Deletes the current row and, where the page does so, renumbers those that stay; all or nothing.
    virtual void deleteAndRenumber();
    // What follows the rows of a direct page when a deletion has moved them, in the same transaction.
    virtual void followMoves(const RowMoves&) {}

    // Many rows at once, in one transaction: before the first, which may be begun anew, and behind the last.
    virtual void beginBlock() {}
    virtual void endBlock() {}
    bool pastesBlock() const { return m_pastes; }

    // Keys. The corrections of a column when it is left.
    virtual void leaveColumn(int column);
    virtual void doubleClick(int column);

    // Confirmation. Statements that follow those of the plan, in the same transaction.
    virtual QStringList followConfirm(const ConfirmPlan&) { return {}; }

    // --- for the pages' own steps -------------------------------------------------------------------
    // Runs steps of the opening that it does not fail with; what they are refused is told at its end.
    widgets::IndependentSteps& opening() { return m_opening; }
    // Makes the rows of `table` those of the page.
    void openTable(const QString& table);
    // Refuses a code that the operator gave and that no other code can follow.
    void requireCountableCode();
    qint64 currentCode() const;
    // The current row's code as the server has it now; none for a new row and for one without a code.
    std::optional<qint64> storedRowCode() const;
    // Adds an entry about the current row to the menu that has just been built; without rows it is
    // disabled.
    void addRowEntry(const QString& caption, const QKeySequence& shortcut, std::function<void()> action);
    // Shows an error message; nothing else.
    static void showError(const QString& text);
    // Shows an error message and goes to the field's column.
    void showErrorAt(const QString& text, const QString& field);
    // The same, and abandons the post; the row stays in edit. The name's column where no field is given.
    [[noreturn]] void refuseRow(const QString& text, const QString& field = {});
    BaseWindow& m_window;
    qint32 LastCode = 0;  // code of the row left last; the next new row counts on from it

private:
    // opening (DefinitionPage.cpp)
    void buildComponents();
    void connectEvents();
    void setGridColumns();
    void showPage();
    void openRows();
    void buildMenu();
    void showColumns();
    void upgradeTable();
    void completeCopy();
    GridStateKey layoutKey() const;
    // rows (DefinitionRows.cpp)
    void beforeInsert();
    void limit(const QString& field);
    // Keeps everybody else from changing a direct page's table until the transaction ends. The highest code
    // in it.
    qint64 lockRows();
    void deleteShared();
    void renumber();
    // keys (DefinitionKeys.cpp)
    bool pasteBlock();
    // confirmation (DefinitionConfirm.cpp)
    ConfirmPlan storeOrTryAgain(const QList<PlanQuestion>& agreed);
    ConfirmPlan storeWorkCopy(const QList<PlanQuestion>& agreed);
    void followStored(const ConfirmPlan& plan, const QList<QPointer<DefinitionPage>>& holding);
    // Where the line was cut in the midst of a confirmation.
    QString settleConfirm();
    void carryOut(const ConfirmPlan& plan);

    const PageDefinition& m_definition;
    DefinitionPage** m_variable;
    widgets::DataGrid* m_grid = nullptr;
    widgets::Panel* m_status = nullptr;
    forms::AdviceLabel* m_advice = nullptr;
    QPushButton* m_confirm = nullptr;
    data::Dataset m_rows;
    QList<forms::PageColumn> m_columns;  // the declaration's, and the extra ones behind them
    MarkCells m_marks{m_rows, m_columns};
    OwnLists m_ownLists{m_definition, m_rows};
    WorkCopy m_copy{m_definition};
    bool m_pastes = false;
    std::optional<NamesAtHand> m_names;  // while a block is pasted
    EditHistory m_history;               // of a page with a work copy
    bool m_forgetsSteps = false;         // once a cut line stands again
    bool m_laidOut = false;              // the operator's stored layout has been given to the columns
    bool m_upgraded = false;             // the table has what older companies' tables lack
    std::optional<data::Reconnection> m_reconnection;  // while there is a work copy
    std::function<void()>
        m_unsettled;  // follows a confirmation of which it is not known whether it is stored
    std::optional<MarkedTable> m_marked;  // as this show has read it, on a page with marks of salary items
    widgets::IndependentSteps m_opening{*this};
};

// For PageDefinition::make.
template <class Page>
DefinitionPage* made(const PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
                     QWidget* parent) {
    return new Page(definition, window, variable, parent);
}

}  // namespace definition
