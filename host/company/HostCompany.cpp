#include "HostCompany.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include "CompanyFile.h"
#include "Embedded.h"
#include "Errors.h"

namespace host {

QString schemaFolder() {
    const QString installed = QDir(QCoreApplication::applicationDirPath()).filePath("schema");
    return QFile::exists(installed) ? installed : QStringLiteral(KORVANTA_SOURCE_DIR "/schema");
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
                                .arg(QDir::toNativeSeparators(file)));
    try {
        const auto connection = tsql::open(file, tsql::OpenMode::Create);
        data::Transaction transaction(*connection);
        runScript(*connection, schemaFolder() + "/company.sql");
        runScript(*connection, schemaFolder() + "/empty.sql");
        fill(*connection);
        transaction.commit();
    } catch (...) {
        QFile::remove(file);  // a half-made company would open, and mislead
        throw;
    }
}

void createEmptyCompany(const QString& file) {
    createCompanyFile(file, [](data::Connection&) {});
}

}  // namespace host
