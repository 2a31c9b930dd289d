// Preview and print of a grid with chosen columns, groups and sub-totals.
#include "ChoiceForm.h"
#include "CompanionEntries.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "PrintForm.h"

extern "C" Q_DECL_EXPORT void PrintForm_Show(TDLLPrnParam* parameters) {
    if (!parameters)
        return;
    widgets::EventBoundary::run([&] {
        const QList<report::ReportColumn> columns =
            parameters->Grid ? report::columnsOf(*parameters->Grid) : QList<report::ReportColumn>();
        if (columns.isEmpty())
            throw data::Refusal(QStringLiteral("ستوني براي چاپ ديده نمي شود."));
        TAdvPrintForm choice(columns);
        if (choice.showModal() == widgets::mrOk)
            report::showPreview(*parameters, choice.columns(), choice.grouping());
    });
}
