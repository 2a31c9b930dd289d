// The editable definition grid: one form, driven by a PageDefinition, for every page of the window.
#pragma once

#include "BaseWindow.h"
#include "Components.h"
#include "Dataset.h"
#include "Errors.h"
#include "Form.h"
#include "PageDefinition.h"
#include "WorkCopy.h"

class QPushButton;

namespace definition {

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
    // Makes or opens the page's data; once in the page's life.
    virtual void OpenData();
    // The page's own corrections before a row is checked.
    virtual void CorrectRow();
    // The mark of a column, toggled; its detail list goes with it.
    void ToggleMark(int column);
    // Shows a message, returns to the description and abandons the post; the row stays in edit.
    [[noreturn]] void refuseRow(const QString& text);
    bool isMark(int column) const;

    BaseWindow& m_window;

private:
    void buildComponents();
    void connectEvents();
    void beforeInsert();
    void RememberRow();
    void rememberDescription();
    void ColumnMode(int column);
    void ColumnExit(int column);
    void DoubleClick(int column);
    void SpaceKey(bool fromGrid);
    void editDetailList(int column);
    void restoreDetailList(int column);
    void storeWorkCopy();
    void renumber();
    qint64 currentCode() const;

    const PageDefinition& m_definition;
    DefinitionPage** m_variable;
    widgets::DataGrid* m_grid = nullptr;
    widgets::Panel* m_status = nullptr;
    QPushButton* m_confirm = nullptr;
    data::Dataset m_rows;
    WorkCopy m_copy;

    qint32 LastCode = 0;  // code of the row left last; the next new row counts on from it
    QString OldDesk;      // description of the row as it was stored
};

}  // namespace definition
