// The smallest host of the payroll base information: a window, a company file, and the six objects that the
// module asks for.
#include <PaymentKorvanta.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QLibrary>
#include <QStandardPaths>
#include <cstdio>

#include <Embedded.h>
#include <Errors.h>
#include <Query.h>

namespace {

// The module is loaded and never linked: it finds the variables that it exports in itself.
class Module {
public:
    Module() : m_library(QStringLiteral(KORVANTA_MODULE)) {}

    template <class Entry>
    Entry* entry(const char* name) {
        return reinterpret_cast<Entry*>(m_library.resolve(name));
    }
    QString trouble() const { return m_library.errorString(); }

private:
    QLibrary m_library;
};

// The module's window lives in it, and goes with it.
class Window : public QWidget {
public:
    explicit Window(Module& module) : m_module(module) {}

protected:
    void closeEvent(QCloseEvent* event) override {
        auto** window = m_module.entry<widgets::Form*>("_SabtPageForm");
        event->setAccepted(!window || !*window || (*window)->closeForm());
    }

private:
    Module& m_module;
};

}  // namespace

int main(int count, char** values) {
    QApplication application(count, values);
    QApplication::setApplicationName(QStringLiteral("payroll-host"));
    application.setLayoutDirection(Qt::RightToLeft);
    if (count != 2) {
        std::fputs("payroll-host COMPANY\n", stderr);
        return 2;
    }
    try {
        const auto company = tsql::open(QString::fromLocal8Bit(values[1]), tsql::OpenMode::Existing);
        data::Query query(company.get());
        data::HostDatabase database{&query, company.get()};
        data::HostDate date;
        data::HostContext context;
        context.UserId = 1;
        context.SCode_1 = context.SCode_2 = QStringLiteral("01");  // the company's key in `Options`
        context.Temp_Prefix = QStringLiteral("W_");
        context.Install_Dir = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
        QDir(context.Install_Dir).mkpath(QStringLiteral("Data"));
        context.Current_Date = QStringLiteral("1404/07/15");
        context.Keyboard = QStringLiteral("WIN");
        widgets::Form state(QStringLiteral("TShowStateForm"));
        TTempGridForm pickList(company.get());
        TDlgMsg messages;
        messages.DefaultTitle = QStringLiteral("حقوق و دستمزد");

        Module module;
        Window window(module);
        window.resize(1024, 640);
        window.show();
        const auto show = module.entry<decltype(Korvanta_Payment)>("Korvanta_Payment");
        const auto release = module.entry<decltype(Release_It)>("Release_It");
        if (!show || !release) {
            std::fprintf(stderr, "%s\n", qUtf8Printable(module.trouble()));
            return 1;
        }
        show(&window, &context, &date, &database, &state, &pickList, &messages);
        const int result = QApplication::exec();
        release();
        return result;
    } catch (const data::TextException& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.text()));
        return 1;
    }
}
