// Preview and print of a grid as it stands.
#include "CompanionEntries.h"
#include "EventBoundary.h"
#include "PrintForm.h"

extern "C" Q_DECL_EXPORT void PrintForm_Show(TDLLPrnParam* parameters) {
    if (!parameters)
        return;
    widgets::EventBoundary::run([&] {
        const QList<report::ReportColumn> columns =
            parameters->Grid ? report::columnsOf(*parameters->Grid) : QList<report::ReportColumn>();
        report::showPreview(*parameters, columns);
    });
}
