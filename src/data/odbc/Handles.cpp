#include "Handles.h"

#include <QStringList>
#include <optional>

#include "Errors.h"

namespace odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

namespace {

// The driver's own refusals: the server gives them no number.
std::optional<data::Fault> faultOf(const QString& state) {
    if (state == QLatin1String("08S01") || state == QLatin1String("08003"))
        return data::Fault::LineLost;
    if (state == QLatin1String("HY008"))
        return data::Fault::GivenUp;
    if (state == QLatin1String("HYT00") || state == QLatin1String("HYT01"))
        return data::Fault::TimedOut;
    return {};
}

}  // namespace

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
    std::optional<data::Fault> fault;
    SQLWCHAR state[6] = {};
    SQLWCHAR text[2048] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT record = 1; SQL_SUCCEEDED(
             SQLGetDiagRecW(m_type, m_handle, record, state, &native, text, std::size(text), &length));
         ++record) {
        const QString code = QString::fromUtf16(reinterpret_cast<const char16_t*>(state));
        if (!fault)
            fault = faultOf(code);
        if (native == kStatementEnded || code.startsWith(QLatin1String("01")))
            continue;
        if (number == 0)
            number = native;
        messages.append(serverWords(QString::fromUtf16(reinterpret_cast<const char16_t*>(text))));
    }
    const QString words = messages.isEmpty() ? QStringLiteral("The ODBC driver failed without a message.")
                                             : messages.join(u'\n');
    if (fault)
        throw data::ServerError(words, *fault);
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
