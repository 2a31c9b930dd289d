#include "CompanyUse.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QFile>
#include <QRegularExpression>

#include "Errors.h"
#include "Query.h"

namespace host {

// A file of its own beside the company: closing the company's would take away the database's locks as well.
CompanyUse::CompanyUse(const QString& file)
    : m_file(open(QFile::encodeName(file + "-use").constData(), O_RDWR | O_CREAT | O_CLOEXEC,
                  S_IRUSR | S_IWUSR)) {
    if (m_file < 0)
        return;
    m_cameFirst = flock(m_file, LOCK_EX | LOCK_NB) == 0;
    if (!m_cameFirst)
        share();
}

void CompanyUse::share() {
    if (m_file >= 0)
        flock(m_file, LOCK_SH);
}

CompanyUse::~CompanyUse() {
    if (m_file >= 0)
        close(m_file);
}

void dropLeftTables(data::Connection& connection, const QString& prefix) {
    static const QString kMarkAndTime = QStringLiteral("[A-Za-z_]*[0-9]+$");
    const QRegularExpression name(u'^' + QRegularExpression::escape(prefix) + kMarkAndTime,
                                  QRegularExpression::CaseInsensitiveOption);
    for (const QVariantList& row :
         connection.execute(QStringLiteral("Select [Name] From Sysobjects Where Upper(XType)='U'")).rows)
        if (const QString table = row[0].toString(); table.contains(name))
            try {
                connection.execute("Drop Table " + data::bracketed(table));
            } catch (const data::ServerError&) {
                // The next opening tries again.
            }
}

}  // namespace host
