#include "ModuleWindow.h"

#include <QCoreApplication>
#include <stdexcept>

#include "Embedded.h"
#include "EventBoundary.h"

namespace bench {

ModuleWindow::ModuleWindow(const QString& companyFile)
    : ModuleWindow(tsql::open(companyFile, tsql::OpenMode::Existing)) {}

ModuleWindow::ModuleWindow(std::unique_ptr<data::Connection> company)
    : m_objects(std::move(company), m_folder.path()),
      m_module(QCoreApplication::applicationDirPath() + "/libPaymentKorvanta.so") {
    m_canvas.resize(1000, 640);
    m_canvas.show();
    QObject::connect(m_objects.dlgMsg.get(), &widgets::Form::modalShown,
                     [this] { qFatal("%s", qUtf8Printable(m_objects.dlgMsg->Memo1->toPlainText())); });
    reopen();
}

void ModuleWindow::reopen() {
    m_module.release();
    m_module.show(&m_canvas, m_objects);
    widgets::EventBoundary::setMessageSink([](const QString& text) { qFatal("%s", qUtf8Printable(text)); });
    if (!m_module.window())
        throw std::runtime_error("the window does not open");
}

}  // namespace bench
