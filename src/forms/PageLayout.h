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
    // The caption of the window in which that list is edited; the window's own where empty.
    QString detailCaption;
    // The values of a cycle: the space bar goes from each to the next, from the last and from any other
    // value to the first.
    QStringList cycle;
};

struct PageLayout {
    QString className;
    QString caption;
    QString gridName;
    QString confirmName;
    QString confirmCaption;
    QList<PageColumn> columns;
    // Components of this page alone.
    QList<Component> more = {};
};

// The components that every page is made of.
QList<Component> pageComponents(const PageLayout& page);

// The width of a column for which none is laid down.
inline constexpr int kDefaultWidth = 64;

// Shorthands for the columns that almost every page has: widths in pixels, a hint for the status line. A code
// is shown and not typed; a cycle has its values in their order; a mark may name the field of its detail list
// and the caption of the list's window.
PageColumn codeColumn(const QString& title, int width, const QString& hint);
PageColumn nameColumn(const QString& title, int width, const QString& hint);
PageColumn numberColumn(const QString& field, const QString& title, int width, const QString& hint);
PageColumn textColumn(const QString& field, const QString& title, int width, const QString& hint);
PageColumn cycleColumn(const QString& field, const QString& title, int width, const QStringList& values,
                       const QString& hint);
PageColumn markColumn(const QString& field, const QString& title, int width, const QString& hint,
                      const QString& detailList = {}, const QString& detailCaption = {});
// The column, shown and never typed into; its texts in the middle.
PageColumn readOnly(PageColumn column);
PageColumn centred(PageColumn column);
// The column, whose numbers are codes or lengths: no report sums them.
PageColumn untotalled(PageColumn column);
// The column, with words of its own for a text that is no number.
PageColumn refusing(const QString& words, PageColumn column);

}  // namespace forms
