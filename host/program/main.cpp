// korvanta-host: opens a company and shows the payroll base information of it.
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTimer>

#include "Appearance.h"
#include "HostWindow.h"
#include "Odbc.h"

namespace {

struct Wishes {
    QString company, server;
    odbc::Waits waits;
    bool demo = false;
    host::DemoSize size;
    std::optional<int> user, month;  // none: as the company has it
};

Wishes readWishes(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows the payroll base information of a company."));
    parser.addHelpOption();
    parser.addOptions({
        {"company", "Opens this company file.", "FILE"},
        {"demo", "Makes the company, where it is missing, with believable rows."},
        {"employees", "How many employees the rows are made for.", "N", "240"},
        {"user", "The current user.", "N"},
        {"month", "The current month, 1 to 12.", "M"},
        {"odbc", "Opens a company on SQL Server.", "CONNECTION"},
        {"lock-timeout", "How long the server waits for rows that somebody else holds.", "SECONDS", "10"},
        {"statement-timeout", "How long a statement may take there; 0 for as long as it takes.", "SECONDS",
         "60"},
    });
    parser.process(application);
    Wishes wishes;
    wishes.company = parser.value(QStringLiteral("company"));
    wishes.server = parser.value(QStringLiteral("odbc"));
    wishes.waits.lockMilliseconds = qMax(0, parser.value(QStringLiteral("lock-timeout")).toInt()) * 1000;
    wishes.waits.statementSeconds = qMax(0, parser.value(QStringLiteral("statement-timeout")).toInt());
    wishes.demo = parser.isSet(QStringLiteral("demo"));
    wishes.size.employees = qMax(1, parser.value(QStringLiteral("employees")).toInt());
    if (parser.isSet(QStringLiteral("user")))
        wishes.user = parser.value(QStringLiteral("user")).toInt();
    if (parser.isSet(QStringLiteral("month")))
        wishes.month = parser.value(QStringLiteral("month")).toInt();
    if (wishes.demo && wishes.company.isEmpty()) {
        const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
        folder.mkpath(QStringLiteral("."));
        wishes.company = folder.filePath(QStringLiteral("demo-%1.company").arg(wishes.size.employees));
    }
    return wishes;
}

void fulfil(HostWindow& window, const Wishes& wishes) {
    if (!wishes.server.isEmpty())
        window.openServer(wishes.server, wishes.waits,
                          wishes.demo ? std::optional(wishes.size) : std::nullopt);
    else if (wishes.company.isEmpty())
        return;
    else if (wishes.demo && !QFileInfo::exists(wishes.company))
        window.createFile(wishes.company, wishes.size);
    else
        window.openFile(wishes.company);
    if (wishes.user)
        window.chooseUser(*wishes.user);
    if (wishes.month)
        window.chooseMonth(*wishes.month);
    window.showModule();
}

}  // namespace

int main(int count, char** values) {
    QApplication application(count, values);
    QApplication::setApplicationName(QStringLiteral("korvanta"));
    host::applyAppearance(application);
    const Wishes wishes = readWishes(application);
    HostWindow window;
    window.show();
    QTimer::singleShot(0, &window, [&] { fulfil(window, wishes); });
    return QApplication::exec();
}
