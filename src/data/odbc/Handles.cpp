#include "Handles.h"

#include <QStringList>

#include "Errors.h"

namespace odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

Handle::Handle(SQLSMALLINT type, SQLHANDLE parent) : m_type(type) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &m_handle)))
        throw data::ServerError(QStringLiteral("The ODBC driver manager gives no handle."));
}

Handle::~Handle() {
    SQLFreeHandle(m_type, m_handle);
}

bool Handle::check(SQLRETURN code) const {
    if (code == SQL_NO_DATA)
        return false;
    if (!SQL_SUCCEEDED(code))
        refuse();
    return true;
}

void Handle::refuse() const {
    // What the server says besides an error, such as that the statement has ended.
    constexpr int kStatementEnded = 3621;
    QStringList messages;
    int number = 0;
    bool lost = false, cancelled = false;
    SQLWCHAR state[6] = {};
    SQLWCHAR text[2048] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT record = 1; SQL_SUCCEEDED(
             SQLGetDiagRecW(m_type, m_handle, record, state, &native, text, std::size(text), &length));
         ++record) {
        const QString code = QString::fromUtf16(reinterpret_cast<const char16_t*>(state));
        lost = lost || code == QLatin1String("08S01") || code == QLatin1String("08003");
        cancelled = cancelled || code == QLatin1String("HY008");
        if (native == kStatementEnded || code.startsWith(QLatin1String("01")))
            continue;
        if (number == 0)
            number = native;
        messages.append(serverWords(QString::fromUtf16(reinterpret_cast<const char16_t*>(text))));
    }
    const QString words = messages.isEmpty() ? QStringLiteral("The ODBC driver failed without a message.")
                                             : messages.join(u'\n');
    if (lost || cancelled)
        throw data::ServerError(words, lost ? data::Fault::LineLost : data::Fault::GivenUp);
    throw data::ServerError(words, number);
}

QString serverWords(const QString& message) {
    qsizetype start = 0;
    while (start < message.size() && message[start] == u'[') {
        const qsizetype end = message.indexOf(u']', start);
        if (end < 0)
            break;
        start = end + 1;
    }
    return message.mid(start).trimmed();
}

SQLWCHAR* wide(const QString& text) {
    return const_cast<SQLWCHAR*>(reinterpret_cast<const SQLWCHAR*>(text.utf16()));
}

}  // namespace odbc
