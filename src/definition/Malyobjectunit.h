// The grid service object: one for the whole window, asked by every page to fill its context menu.
#pragma once

#include <QKeySequence>
#include <QMenu>
#include <functional>

#include "DataGrid.h"

// What a page says of its grid before its menu is built.
struct TGridProperty {
    widgets::DataGrid* grid = nullptr;
    QString keyColumn;
    QString sortColumn;
    // The key of the grid's stored layout.
    QString program;
    QString item;
    QString form;
    QString part;
    QString reportTitle1;
    QString reportTitle2;
    QString table;  // the table that the grid shows; a work table where the page has one
};

class TMalyObject {
public:
    TGridProperty Property;

    // Adds an entry at the menu's end. The action is entered through the event boundary. The image
    // number tells the entry apart from the others.
    static QAction* Add_Item(QMenu& menu, const QString& caption, int image, const QKeySequence& shortcut,
                             std::function<void()> action);
};
