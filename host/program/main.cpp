// korvanta-host: opens a company and shows the payroll base information of it.
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "Appearance.h"
#include "CompanyCheck.h"
#include "Errors.h"
#include "HostWindow.h"
#include "Odbc.h"

namespace {

[[noreturn]] void refuse(const char* why) {
    std::fprintf(stderr, "%s\n", why);
    std::exit(EXIT_FAILURE);
}

struct Wishes {
    QString company, server;
    odbc::Waits waits;
    bool demo = false;
    host::DemoSize size;
    std::optional<int> user, month;  // none: as the company has it
};

// What is wrong with a company, for an administrator; and the end.
[[noreturn]] void report(const QString& file) {
    try {
        const QStringList findings = host::checkCompanyFile(file);
        for (const QString& finding : findings)
            std::printf("%s\n", qUtf8Printable(finding));
        std::printf("%s: %s\n", qUtf8Printable(file), findings.isEmpty() ? "sound" : "not sound");
        std::exit(findings.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE);
    } catch (const data::TextException& error) {
        refuse(qUtf8Printable(error.text()));
    }
}

// The connection that is wished for; empty for none. A password is not to be read in the list of processes.
QString server(const QCommandLineParser& parser) {
    static const QRegularExpression password(QStringLiteral("(^|;)\\s*(pwd|password)\\s*="),
                                             QRegularExpression::CaseInsensitiveOption);
    QString said = parser.value(QStringLiteral("odbc"));
    if (said.contains(password) && !parser.isSet(QStringLiteral("odbc-insecure")))
        refuse(
            "--odbc holds a password, which every user of this machine could read. Put the connection into a "
            "file "
            "of mode 600 and name it with --odbc-file, or into KORVANTA_ODBC; --odbc-insecure takes it as it "
            "is.");
    if (!said.isEmpty())
        return said;
    const QString name = parser.value(QStringLiteral("odbc-file"));
    const bool file = parser.isSet(QStringLiteral("company")) || parser.isSet(QStringLiteral("demo")) ||
                      !parser.positionalArguments().isEmpty();
    if (name.isEmpty())
        return file ? QString() : qEnvironmentVariable("KORVANTA_ODBC");
    QFile kept(name);
    if (!kept.open(QIODevice::ReadOnly))
        refuse(qUtf8Printable(name + ": " + kept.errorString()));
    if (kept.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther))
        refuse(qUtf8Printable(name + ": others than its owner can read it; its mode must be 600."));
    return QString::fromUtf8(kept.readAll()).trimmed();
}

Wishes readWishes(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows the payroll base information of a company."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument("FILE", "Opens this company file.", "[FILE]");
    parser.addOptions({
        {"company", "Opens this company file.", "FILE"},
        {"check", "Looks for what is wrong with this company file, and ends: 0 for nothing.", "FILE"},
        {"demo", "Makes the company, where it is missing, with believable rows."},
        {"employees", "How many employees the rows are made for.", "N", "240"},
        {"user", "The current user.", "N"},
        {"month", "The current month, 1 to 12.", "M"},
        {"odbc", "Opens a company on SQL Server; KORVANTA_ODBC in the environment does as well.",
         "CONNECTION"},
        {"odbc-file", "The same, with the connection in a file that its owner alone can read.", "FILE"},
        {"odbc-insecure", "Lets --odbc hold a password, which every user of the machine can see then."},
        {"lock-timeout", "How long the server waits for rows that somebody else holds.", "SECONDS", "10"},
        {"statement-timeout", "How long a statement may take there; 0 for as long as it takes.", "SECONDS",
         "60"},
    });
    parser.process(application);
    if (parser.isSet(QStringLiteral("check")))
        report(parser.value(QStringLiteral("check")));
    Wishes wishes;
    wishes.company = parser.value(QStringLiteral("company"));
    if (wishes.company.isEmpty())
        wishes.company = parser.positionalArguments().value(0);
    wishes.server = server(parser);
    wishes.waits.lockMilliseconds = qMax(0, parser.value(QStringLiteral("lock-timeout")).toInt()) * 1000;
    wishes.waits.statementSeconds = qMax(0, parser.value(QStringLiteral("statement-timeout")).toInt());
    wishes.demo = parser.isSet(QStringLiteral("demo"));
    wishes.size.employees = qMax(1, parser.value(QStringLiteral("employees")).toInt());
    if (parser.isSet(QStringLiteral("user")))
        wishes.user = parser.value(QStringLiteral("user")).toInt();
    if (parser.isSet(QStringLiteral("month")))
        wishes.month = parser.value(QStringLiteral("month")).toInt();
    if (wishes.demo && wishes.company.isEmpty() && wishes.server.isEmpty()) {
        const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
        folder.mkpath(QStringLiteral("."));
        wishes.company = folder.filePath(QStringLiteral("demo-%1.company").arg(wishes.size.employees));
    }
    return wishes;
}

// Whether it says something and ends: that takes no display.
bool answersByText(int count, char** values) {
    static const QStringList words = {"--check", "--version", "-v", "--help", "-h", "--help-all"};
    return std::any_of(values + 1, values + count, [](const char* value) {
        return words.contains(QString::fromLocal8Bit(value).section(u'=', 0, 0));
    });
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
    QCoreApplication::setApplicationName(QStringLiteral("korvanta"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KORVANTA_VERSION));
    if (answersByText(count, values))
        readWishes(QCoreApplication(count, values));
    QApplication application(count, values);
    host::applyAppearance(application);
    const Wishes wishes = readWishes(application);
    HostWindow window;
    window.show();
    QTimer::singleShot(0, &window, [&] { fulfil(window, wishes); });
    return QApplication::exec();
}
