#include "PaymentKorvanta.h"

#include <QApplication>
#include <QPointer>
#include <QScopedValueRollback>

#include "EventBoundary.h"
#include "Sabtpageunit.h"
#include "ServerWait.h"
#include "Step.h"
#include "Untfmsg.h"

TSabtPageForm* _SabtPageForm = nullptr;
widgets::Form *_GrafForm = nullptr, *_GrafColSetForm = nullptr;

namespace {

int releases = 0;

}  // namespace

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
    widgets::EventBoundary::setLineHandler(
        [](const data::ServerError& error) { Offer_Reconnection(*_MyDatabase->Connection, error); });
    database->Connection->setPatience(widgets::waitForServer);
    if (TSabtPageForm::mustWait()) {
        widgets::Step::afterwards([=, parent = QPointer(parent), before = releases] {
            if (before == releases)
                Korvanta_Payment(parent, global, date, database, showStateForm, tempGridForm, dlgMsg);
        });
        return;
    }
    const bool created = !_SabtPageForm;
    const QScopedValueRollback showing(TSabtPageForm::comesOrGoes, true);
    const widgets::Step step;
    const bool ran = widgets::EventBoundary::run([&] {
        if (created)
            _SabtPageForm = new TSabtPageForm(parent);
    });
    TSabtPageForm* const window = _SabtPageForm;
    if (ran && window && !window->showForm() && created && window == _SabtPageForm)
        Release_It();  // nothing half-made stays behind
}

void Release_It() {
    ++releases;
    if (TSabtPageForm* window = std::exchange(_SabtPageForm, nullptr))
        window->release();
    else if (TSabtPageForm::comesOrGoes)
        widgets::Step::endAll();  // a message about it stands open
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
