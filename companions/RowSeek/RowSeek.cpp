// The entry points of the search and sort library.
#include "CompanionEntries.h"
#include "DataGrid.h"
#include "EventBoundary.h"
#include "SeekForm.h"
#include "SortForm.h"

namespace {

// What is being typed is part of the rows. False when the grid refused it, and has said so.
bool ready(widgets::DataGrid* grid) {
    return grid != nullptr && grid->dataset() != nullptr && grid->dataset()->active() &&
           widgets::EventBoundary::run([grid] {
               grid->commitCell();
               grid->dataset()->checkBrowseMode();
           });
}

}  // namespace

extern "C" {

Q_DECL_EXPORT void GridSearch(QString* result, widgets::DataGrid* grid, const QString& /*sortColumn*/,
                              const QString& /*table*/, const QString& previous) {
    *result = previous;
    if (!ready(grid))
        return;
    rowseek::SeekForm form(*grid, previous);
    form.showModal();
    // Callers keep results in a text of entries that end with ";".
    *result = QString(form.searched()).remove(u';');
}

Q_DECL_EXPORT void AdvSort(QString* result, widgets::DataGrid* grid, const QString& /*reserved1*/,
                           const QString& /*reserved2*/, const QString& /*reserved3*/) {
    result->clear();
    if (!ready(grid))
        return;
    rowseek::SortForm form(*grid);
    form.showModal();
    *result = grid->dataset()->indexFieldNames();
}
}
