// The grid service object: one for the whole window. Every page asks it to fill its context menu with
// what a grid can do: find, column layouts, copy and paste, export, filter, report, print, sort, fit.
#pragma once

#include <QKeySequence>
#include <QMenu>
#include <functional>

#include "DataGrid.h"
#include "DbfExport.h"
#include "RestrictedView.h"
#include "SuiteHost.h"

class TSelForm;

// What a page says of its grid before its menu is built.
struct TGridProperty {
    SuiteHost host;
    widgets::DataGrid* grid = nullptr;
    // The key of the grid's stored layout, and of its report.
    QString program;
    QString item;
    QString form;
    QString part;
    QString reportTitle1;  // of report properties and HTML pages
    QString reportTitle2;  // the first line over a printed grid; the next two:
    QString reportText3 = QStringLiteral(" ");
    QString reportText4 = QStringLiteral(" ");
    QString text5, text6, text7, text8;  // further texts for the print engines
    // For the standard deletion: the procedure's name and the parts of the key that it is asked for, as
    // columns and '_' joined by "+"; empty where nothing can depend on a row.
    QString dependency;
    QString keyColumn;
    QString sortColumn;
    QString table;  // the table that the grid shows; a work table where the page has one
    // Pastes the clipboard where it holds more than a cell; false where it does not. None where the grid
    // takes no blocks.
    std::function<bool()> pasteBlock;
    QString exportName;  // the table that exported files are named after
};

class TMalyObject : public QObject {
public:
    TMalyObject();
    ~TMalyObject() override;

    TGridProperty Property;

    // Fills the menu with the standard entries for the grid that Property describes, each as the user's
    // rights, read now, and the grid's rows allow. What an entry does later it does to that grid. The
    // menu stays empty while the grid's dataset is closed.
    void Build(QMenu& menu);
    // Takes out the first entry of the menu, submenus' entries apart, that has the image number.
    static void Remove_Item(QMenu& menu, int image);
    // Adds an entry at the menu's end. The action is entered through the event boundary. The image
    // number tells the entry apart from the others; -1 for none.
    static QAction* Add_Item(QMenu& menu, const QString& caption, int image, const QKeySequence& shortcut,
                             std::function<void()> action);

private:
    void deleteRow(const TGridProperty& grid);
    void print(const TGridProperty& grid, bool advanced);
    void exportDbf(const TGridProperty& grid, DbfText text);
    // The object that names the report to the libraries.
    QObject* reportSource(const TGridProperty& grid);

    RestrictedViews m_views;
    std::unique_ptr<TSelForm> m_selForm;
    QString m_searches;  // the text searched for last, a column each
    QObject m_source;
};
