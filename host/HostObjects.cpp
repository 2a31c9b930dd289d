#include "HostObjects.h"

#include <QCoreApplication>
#include <QDir>

namespace host {

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
    const QString built = QDir(QCoreApplication::applicationDirPath()).filePath("../DLLS/SharedForms");
    const QString wanted = QDir(installDir).filePath("DLLS/SharedForms");
    if (QFileInfo::exists(wanted) || !QFileInfo::exists(built))
        return;
    QDir(installDir).mkpath("DLLS");
    QFile::link(QDir::cleanPath(built), wanted);
}

}  // namespace host
