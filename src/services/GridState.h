// The columns of a grid as each operator likes them: which are visible, how wide and in which order.
// Kept in the company's table Grid_State, one row a column.
#pragma once

#include "DataGrid.h"
#include "HostContext.h"

// Names a stored layout, together with the user.
struct GridStateKey {
    QString program, item, form, part;
};

// Stores the grid's layout in place of the one there was, and says so. What the layout knows of columns
// that other grids of the same key have stays. All or nothing: a server that refuses leaves the old layout.
// Nothing happens while the grid's dataset is closed or it has no columns.
void Save_Grid_State(data::HostDatabase& db, const data::HostContext& context, const widgets::DataGrid& grid,
                     const GridStateKey& key);

// Throws the stored layout away, and says that it shows when the form is entered again.
void Reset_Grid_State(data::HostDatabase& db, const data::HostContext& context, const widgets::DataGrid& grid,
                      const GridStateKey& key);

// Gives the grid its stored layout, column by column by field name. A column that the layout does not
// know keeps its design place and width; a stored column that the grid has no more is passed over.
void Restore_Grid_State(data::HostDatabase& db, const data::HostContext& context, widgets::DataGrid& grid,
                        const GridStateKey& key);
