// Grids that show a restricted view of their rows instead of all of them.
#pragma once

#include <map>
#include <memory>

#include "DataGrid.h"

class RestrictedViews {
public:
    RestrictedViews();
    ~RestrictedViews();

    bool restricted(const widgets::DataGrid& grid) const { return m_views.count(&grid) > 0; }

    // Asks for a restriction of the table's rows and shows those that remain, read-only; on a grid that
    // shows a restricted view, shows its own rows again. The grid's own dataset stays open, with a row
    // in edit stored first.
    void Filter_Menu_Click(widgets::DataGrid& grid, const QString& baseText);

private:
    struct View;
    void restore(widgets::DataGrid& grid);

    std::map<const widgets::DataGrid*, std::unique_ptr<View>> m_views;
    QObject m_context;  // of the handlers that forget a grid with its view
};

// How the numbers of a restricted view are shown.
void Build_Fields(widgets::DataGrid& grid, const QString& floatFormat, const QString& intFormat);
