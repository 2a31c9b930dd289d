#include "PaymentKorvanta.h"

#include <QApplication>

#include "EventBoundary.h"
#include "Sabtpageunit.h"
#include "Untfmsg.h"

extern "C" {
TSabtPageForm* _SabtPageForm = nullptr;
}

void Korvanta_Payment(QWidget* parent, data::HostContext* global, data::HostDate* date,
                      data::HostDatabase* database, widgets::Form* showStateForm, TTempGridForm* tempGridForm,
                      TDlgMsg* dlgMsg) {
    _Global = global;
    _MyDate = date;
    _MyDatabase = database;
    _ShowStateForm = showStateForm;
    _TempGridForm = tempGridForm;
    _DlgMsg = dlgMsg;
    widgets::EventBoundary::setMessageSink(
        [](const QString& text) { Show_Msg(text, QString(), QStringLiteral("1ER")); });
    const bool created = !_SabtPageForm;
    const bool ran = widgets::EventBoundary::run([&] {
        if (created)
            _SabtPageForm = new TSabtPageForm(parent);
    });
    if (ran && !_SabtPageForm->showForm() && created)
        Release_It();  // nothing half-made stays behind
}

void Release_It() {
    delete _SabtPageForm;
    _SabtPageForm = nullptr;
}

namespace {

// The library's detach: the host ends without having released the window. Once the application object
// is gone its widgets are too.
struct Unload {
    ~Unload() {
        if (qApp)
            Release_It();
    }
} unload;

}  // namespace
