// Properties of a report.
#include "CompanionEntries.h"
#include "EventBoundary.h"
#include "PropertyForm.h"

extern "C" Q_DECL_EXPORT void RepPropertyForm_Show(const QString&, const QString& title, QObject* source) {
    widgets::EventBoundary::run([&] {
        const auto property = [&](const char* name) {
            return source ? source->property(name).toString() : QString();
        };
        TRepPropertyForm form(property(companions::ReportSource::kInstallDir),
                              property(companions::ReportSource::kGridKey), title);
        form.showModal();
    });
}
