// Copies of a company file, in "Backups" beside it: one a day, ten in all, and one of what stood before each
// restoring.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>

namespace host {

struct Backup {
    QString file;
    QDateTime made;
    qint64 size = 0;  // bytes
};

// The newest first.
QList<Backup> backupsOf(const QString& companyFile);

// Makes today's, unless there is one, and checks it; the oldest beyond ten go. `goesOn` is asked while it is
// made: false gives it up. Refusal where it cannot be made, or is not sound. Any thread may call it.
void backUpToday(const QString& companyFile, const std::function<bool()>& goesOn);

// Makes the company what the copy is, whole or not at all, after what it is now has been copied as well. The
// caller has closed it. Refusal for a copy that is not sound, and while another program writes.
void restoreBackup(const QString& companyFile, const QString& backup);

}  // namespace host
