#include "FileCopy.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QThread>

#include "Errors.h"
#include "Handle.h"

namespace tsql {
namespace {

constexpr int kPages = 1024;           // between two looks: four megabytes
constexpr int kPauseMilliseconds = 5;  // leaves the disk to those who work
constexpr int kBusyMilliseconds = 3000;

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

Database openDatabase(const QString& file, int flags) {
    sqlite3* database = nullptr;
    const int result =
        sqlite3_open_v2(file.toUtf8().constData(), &database, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    Database opened(database);
    if (result != SQLITE_OK)
        throw data::Refusal(QStringLiteral("پرونده «%1» باز نمي شود.").arg(data::pathInText(file)));
    sqlite3_busy_timeout(database, kBusyMilliseconds);
    return opened;
}

void makeFile(const QString& file) {
    QFile made(file);
    if (!made.open(QIODevice::NewOnly) || !made.setPermissions(QFile::ReadOwner | QFile::WriteOwner))
        throw data::Refusal(
            QStringLiteral("پرونده «%1» ساخته نمي شود: %2").arg(data::pathInText(file), made.errorString()));
}

}  // namespace

bool copyCompany(const QString& from, const QString& to, const std::function<bool()>& goesOn) {
    const bool isNew = !QFileInfo::exists(to);
    if (isNew)
        makeFile(to);
    auto dropped = qScopeGuard([&] {
        if (isNew)
            QFile::remove(to);
    });
    const Database source = openDatabase(from, SQLITE_OPEN_READONLY);
    const Database target = openDatabase(to, SQLITE_OPEN_READWRITE);
    sqlite3_backup* copy = sqlite3_backup_init(target.get(), "main", source.get(), "main");
    int result = copy ? SQLITE_OK : SQLITE_ERROR;
    bool givenUp = false;
    while (result == SQLITE_OK) {
        givenUp = goesOn && !goesOn();
        if (givenUp)
            break;
        result = sqlite3_backup_step(copy, goesOn ? kPages : -1);
        if (goesOn)
            QThread::msleep(kPauseMilliseconds);
    }
    if (copy)
        sqlite3_backup_finish(copy);  // what has not come to its end is rolled back
    if (givenUp)
        return false;
    if (result != SQLITE_DONE)
        throw data::Refusal(QStringLiteral("«%1» در «%2» کپي نشد: %3")
                                .arg(data::pathInText(from), data::pathInText(to),
                                     QString::fromUtf8(sqlite3_errstr(result))));
    dropped.dismiss();
    return true;
}

bool isSound(const QString& file) {
    try {
        const Handle handle(file, false);
        const PreparedStatement check = handle.prepare("PRAGMA main.integrity_check(1)");
        return sqlite3_step(check.get()) == SQLITE_ROW && columnText(check.get(), 0) == QLatin1String("ok");
    } catch (const data::TextException&) {
        return false;
    }
}

}  // namespace tsql
