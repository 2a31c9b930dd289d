#include "Errors.h"
#include "HostObjects.h"

namespace host {
namespace {

using EntryPoint = void (*)(QWidget*, data::HostContext*, data::HostDate*, data::HostDatabase*,
                            widgets::Form*, TTempGridForm*, TDlgMsg*);
using Release = void (*)();

QFunctionPointer resolved(QLibrary& library, const char* name) {
    const QFunctionPointer function = library.resolve(name);
    if (function == nullptr)
        throw data::Refusal(
            QStringLiteral("کتابخانه حقوق و دستمزد کامل نيست (%1). برنامه را دوباره نصب کنيد.")
                .arg(QLatin1String(name)));
    return function;
}

}  // namespace

Module::Module(const QString& libraryFile) : m_library(libraryFile) {
    if (!m_library.load())
        throw data::Refusal(QStringLiteral("کتابخانه حقوق و دستمزد بار نشد. برنامه را دوباره نصب کنيد.\n") +
                            m_library.errorString());
    m_entry = resolved(m_library, "Korvanta_Payment");
    m_release = resolved(m_library, "Release_It");
    m_window = reinterpret_cast<widgets::Form**>(resolved(m_library, "_SabtPageForm"));
}

Module::~Module() {
    release();
    m_library.unload();
}

void Module::show(QWidget* parent, HostObjects& objects) {
    reinterpret_cast<EntryPoint>(m_entry)(parent, &objects.global, &objects.date, &objects.database,
                                          &objects.showStateForm, objects.tempGridForm.get(),
                                          objects.dlgMsg.get());
}

void Module::release() {
    reinterpret_cast<Release>(m_release)();
}

widgets::Form* Module::window() const {
    return *m_window;
}

}  // namespace host
