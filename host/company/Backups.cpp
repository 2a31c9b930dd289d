#include "Backups.h"

#include <QDir>
#include <QFileInfo>

#include "Errors.h"
#include "FileCopy.h"

namespace host {
namespace {

constexpr int kKept = 10;
const QString kDay = QStringLiteral("yyyyMMdd");
const QString kMoment = QStringLiteral("yyyyMMdd-HHmmss");

QDir folderOf(const QString& companyFile) {
    return QDir(QFileInfo(companyFile).absolutePath() + QStringLiteral("/Backups"));
}

QString nameOf(const QString& companyFile, const QString& moment) {
    const QFileInfo info(companyFile);
    return info.completeBaseName() + u'-' + moment + u'.' + info.suffix();
}

QDateTime momentIn(const QString& companyFile, const QString& name) {
    const QFileInfo info(companyFile);
    const QString moment = name.mid(info.completeBaseName().size() + 1).chopped(info.suffix().size() + 1);
    const QDateTime exact = QDateTime::fromString(moment, kMoment);
    return exact.isValid() ? exact : QDateTime::fromString(moment, kDay);
}

void makeFolder(const QDir& folder) {
    if (!folder.mkpath(QStringLiteral(".")))
        throw data::Refusal(
            QStringLiteral("پوشه «%1» ساخته نمي شود.").arg(data::pathInText(folder.absolutePath())));
    QFile::setPermissions(folder.absolutePath(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void dropOldest(const QString& companyFile) {
    const QList<Backup> backups = backupsOf(companyFile);
    for (const Backup& backup : backups.mid(qMin<qsizetype>(kKept, backups.size())))
        QFile::remove(backup.file);
}

}  // namespace

QList<Backup> backupsOf(const QString& companyFile) {
    QList<Backup> backups;
    const QString any = nameOf(companyFile, QStringLiteral("*"));
    for (const QFileInfo& file : folderOf(companyFile).entryInfoList({any}, QDir::Files))
        if (const QDateTime made = momentIn(companyFile, file.fileName()); made.isValid())
            backups.append({file.absoluteFilePath(), made, file.size()});
    std::sort(backups.begin(), backups.end(),
              [](const Backup& one, const Backup& other) { return one.made > other.made; });
    return backups;
}

void backUpToday(const QString& companyFile, const std::function<bool()>& goesOn) {
    const QDir folder = folderOf(companyFile);
    const QString today = folder.filePath(nameOf(companyFile, QDate::currentDate().toString(kDay)));
    if (QFileInfo::exists(today))
        return;
    makeFolder(folder);
    // It has its name when it is whole and sound.
    const QString making = today + QStringLiteral(".making");
    QFile::remove(making);
    if (!tsql::copyCompany(companyFile, making, goesOn))
        return;
    if (!tsql::isSound(making)) {
        QFile::remove(making);
        throw data::Refusal(QStringLiteral("پرونده شرکت سالم نيست و پشتيبان امروز گرفته نشد."));
    }
    for (const char* beside : {"-wal", "-shm"})
        QFile::remove(making + QLatin1String(beside));
    if (!QFile::rename(making, today))
        throw data::Refusal(QStringLiteral("پشتيبان امروز ساخته نشد."));
    dropOldest(companyFile);
}

void restoreBackup(const QString& companyFile, const QString& backup) {
    if (!tsql::isSound(backup))
        throw data::Refusal(QStringLiteral("اين پشتيبان سالم نيست و بازگردانده نشد."));
    makeFolder(folderOf(companyFile));
    const auto named = [&](const QDateTime& moment) {
        return folderOf(companyFile).filePath(nameOf(companyFile, moment.toString(kMoment)));
    };
    QDateTime now = QDateTime::currentDateTime();
    while (QFileInfo::exists(named(now)))
        now = now.addSecs(1);
    tsql::copyCompany(companyFile, named(now));
    tsql::copyCompany(backup, companyFile);
}

}  // namespace host
