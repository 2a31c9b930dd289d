#include "HostCompany.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include "CompanyFile.h"
#include "Embedded.h"
#include "Errors.h"
#include "Parts.h"

namespace host {

QString schemaFolder() {
    return partOf(QStringLiteral("schema"));
}

void runScript(data::Connection& connection, const QString& scriptFile) {
    QFile file(scriptFile);
    if (!file.open(QIODevice::ReadOnly))
        throw data::ServerError(QStringLiteral("Cannot open %1: %2").arg(scriptFile, file.errorString()));
    QString batch;
    const auto flush = [&] {
        if (!batch.trimmed().isEmpty())
            connection.execute(batch);
        batch.clear();
    };
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString& line : lines) {
        if (line.trimmed().compare(QLatin1String("GO"), Qt::CaseInsensitive) == 0)
            flush();
        else
            batch += line + u'\n';
    }
    flush();
}

void createCompanyFile(const QString& file, const std::function<void(data::Connection&)>& fill) {
    if (QFile::exists(file))
        throw data::Refusal(QStringLiteral("پرونده «%1» از پيش وجود دارد؛ نام ديگري انتخاب کنيد.")
                                .arg(data::pathInText(file)));
    // Made under another name: even a program that is ended half-way leaves no half company behind.
    const QString making = file + ".making";
    const auto cleared = qScopeGuard([&] { QFile::remove(making); });
    QFile place(making);
    if (!place.open(QIODevice::WriteOnly))
        throw data::Refusal(
            QStringLiteral("در پوشه «%1» نمي توان نوشت. اجازه نوشتن بگيريد يا پوشه ديگري انتخاب کنيد.")
                .arg(data::pathInText(QFileInfo(file).absolutePath())));
    place.close();
    place.remove();
    {
        const auto connection = tsql::open(making, tsql::OpenMode::Create);
        data::Transaction transaction(*connection);
        runScript(*connection, schemaFolder() + "/company.sql");
        runScript(*connection, schemaFolder() + "/empty.sql");
        fill(*connection);
        transaction.commit();
    }
    // What people earn is its owner's alone to show.
    place.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (!place.rename(file))
        throw data::Refusal(
            QStringLiteral("پرونده «%1» ساخته نشد: %2").arg(data::pathInText(file), place.errorString()));
}

void createCompanyOn(data::Connection& connection, const std::optional<DemoSize>& demo) {
    data::Transaction transaction(connection);
    for (const char* script : {"/company.sql", "/procedures.sql", "/empty.sql"})
        runScript(connection, schemaFolder() + QLatin1String(script));
    if (demo)
        fillDemo(connection, *demo);
    transaction.commit();
}

bool holdsCompany(data::Connection& connection) {
    return !connection
                .execute(QStringLiteral("select name from sysobjects where name='Options' and xtype='U'"))
                .rows.isEmpty();
}

void createEmptyCompany(const QString& file) {
    createCompanyFile(file, [](data::Connection&) {});
}

}  // namespace host
