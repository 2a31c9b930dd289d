// The entry point of the filter library.
#include "CompanionEntries.h"
#include "DataGrid.h"
#include "EventBoundary.h"
#include "SieveForm.h"

extern "C" Q_DECL_EXPORT void ShowFilter(QString* result, data::HostContext* /*context*/,
                                         data::HostDatabase* database, TDlgMsg* /*messages*/,
                                         widgets::DataGrid* grid, const QString& baseText,
                                         const QString& /*reserved*/) {
    result->clear();
    if (grid == nullptr || grid->dataset() == nullptr || !grid->dataset()->active())
        return;
    // A row that is not stored yet would be missing in the restricted view.
    const bool stored = widgets::EventBoundary::run([grid] {
        grid->commitCell();
        grid->dataset()->checkBrowseMode();
    });
    if (!stored)
        return;
    rowsieve::SieveForm form(*database->Connection, *grid, baseText.trimmed());
    if (form.showModal() == widgets::mrOk)
        *result = form.property(rowsieve::SieveForm::kAnswer).toString();
}
