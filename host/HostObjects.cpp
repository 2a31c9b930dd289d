#include "HostObjects.h"

#include <QDir>

#include "Parts.h"

namespace host {
namespace {

// Links a folder of this program's own into an installation that has none.
void provide(const QString& source, const QString& wanted) {
    const QDir from(QDir::cleanPath(source)), to(wanted);
    to.mkpath(QStringLiteral("."));
    for (const QFileInfo& file : from.entryInfoList(QDir::Files)) {
        const QFileInfo own(to.filePath(file.fileName()));
        if (own.exists())
            continue;
        if (own.isSymLink())  // to a program that has gone
            QFile::remove(own.filePath());
        QFile::link(file.filePath(), own.filePath());
    }
}

}  // namespace

HostObjects::HostObjects(std::unique_ptr<data::Connection> connection, const QString& installDir)
    : showStateForm(QStringLiteral("TShowStateForm")),
      tempGridForm(std::make_unique<TTempGridForm>(connection.get())),
      dlgMsg(std::make_unique<TDlgMsg>()),
      m_connection(std::move(connection)),
      m_query(m_connection.get()) {
    provideCompanions(installDir);
    global.UserId = 1;
    global.SCode_1 = QStringLiteral("01");
    global.SCode_2 = QStringLiteral("01");
    global.Temp_Prefix = QStringLiteral("W_");
    global.Install_Dir = installDir;
    global.Current_Date = QStringLiteral("1404/07/15");
    global.Platform = QStringLiteral("Windows NT");
    global.Keyboard = QStringLiteral("WIN");
    database = {&m_query, m_connection.get()};
    dlgMsg->DefaultTitle = QStringLiteral("حقوق و دستمزد");
}

void provideCompanions(const QString& installDir) {
    for (const char* folder : {"DLLS/SharedForms", "Help", "Help/pictures"})
        provide(partOf(QLatin1String(folder)), QDir(installDir).filePath(QLatin1String(folder)));
}

}  // namespace host
