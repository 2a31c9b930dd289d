// The insides of the grid, shared by its units: keys, typing, and the view itself.
#pragma once

#include <QMenu>
#include <QPointer>

#include "CellEditor.h"
#include "DataGrid.h"
#include "GridDelegate.h"
#include "GridHeader.h"
#include "GridModel.h"

namespace widgets {

struct DataGrid::Private {
    explicit Private(DataGrid* grid) : q(grid) {}

    DataGrid* q;
    GridModel* model = nullptr;
    GridDelegate* delegate = nullptr;
    TitleHeader* titles = nullptr;
    IndicatorHeader* indicator = nullptr;
    CellEditor* editor = nullptr;
    QMenu* menu = nullptr;
    QPointer<QWidget> pickList;
    QHash<int, QColor> titleColors;
    int column = 0;
    std::optional<QPoint> anchor;  // column and row of the cell in which a block was begun
    bool editing = true;
    bool popupEnabled = true;
    bool inside = false;          // the operator's focus is in the grid
    bool typing = false;          // the editor holds text that the dataset does not know
    bool returning = false;       // the focus goes back to the refused text
    bool refusedOnLeave = false;  // the refusal of that text waits to be shown
    QString textBefore;           // the cell's text when the typing began

    data::Dataset* dataset() const { return model->dataset(); }
    bool active() const { return dataset() != nullptr && dataset()->active(); }
    bool editingRow() const;
    const GridColumn* selected() const;

    // view
    void attach(data::Dataset* dataset);
    void showCursor();
    Indicator indicatorOf(int row) const;
    TitleHeader::Colors titleLook(int column) const;
    bool select(const QModelIndex& index);
    void doubleClickEmpty(const QPoint& place);

    // keys (GridKeys.cpp): true when the key has been dealt with
    bool handleKey(QKeyEvent& key);
    bool copyingDenied(const QKeyEvent& key);
    bool runShortcut(const QKeyEvent& key);
    QAction* menuAction(const QKeyEvent& key) const;
    bool act(const QKeyEvent& key);
    bool arrange(const QKeyEvent& key);
    bool moveInGrid(const QKeyEvent& key);
    bool moveSideways(int key);
    int columnsTo(int key) const;
    void step(int columns);
    void moveDown(bool mayStartRow);
    void markFrom(bool extends);
    int pageRows() const;
    bool escape();
    bool leaveByTab(bool forward);
    bool typeText(const QKeyEvent& key);

    // typing (GridTyping.cpp)
    void makeEditor();
    void startTyping(const QString& text);
    void placeEditor();
    void stopTyping();
    void commit();
    QString rawText() const;
    QString typedText(QString text) const;

    // focus and menu (GridFocus.cpp)
    void focusLost(const QFocusEvent& event);
    void leave();
    bool openMenu(const QPoint& globalPosition);
};

}  // namespace widgets
