// What a page holds: one grid, a status line and a confirm button, named as the page names them.
#pragma once

#include "DataGrid.h"
#include "FormLayout.h"

namespace forms {

struct PageColumn {
    widgets::GridColumn grid;
    // Shown in the status line while the column is selected; {D} stands for the row's description
    // between parentheses.
    QString hint;
    // The column that holds the detail list of a mark; empty for a mark without one.
    QString detailList;
    // The caption of the window in which that list is edited.
    QString detailCaption;
};

struct PageLayout {
    QString className;
    QString caption;
    QString gridName;
    QString confirmName;
    QString confirmCaption;
    QList<PageColumn> columns;
};

// The components that every page is made of.
QList<Component> pageComponents(const PageLayout& page);

// Shorthands for the columns that almost every page has.
PageColumn codeColumn(const QString& title, int width, const QString& hint);
PageColumn nameColumn(const QString& title, int width, const QString& hint);
PageColumn numberColumn(const QString& field, const QString& title, int width, const QString& hint);
PageColumn markColumn(const QString& field, const QString& title, int width, const QString& hint,
                      const QString& detailList = {}, const QString& detailCaption = {});

}  // namespace forms
