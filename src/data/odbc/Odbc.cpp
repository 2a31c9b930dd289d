#include "Odbc.h"

#include <bit>
#include <cstdint>

#include "Errors.h"
#include "Handles.h"
#include "Rows.h"
#include "Session.h"

namespace odbc {

namespace {

// A number that ODBC takes where it also takes pointers.
SQLPOINTER attribute(std::uintptr_t value) {
    return std::bit_cast<SQLPOINTER>(value);
}

class Environment {
public:
    Environment() : m_handle(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
        m_handle.check(SQLSetEnvAttr(m_handle.get(), SQL_ATTR_ODBC_VERSION, attribute(SQL_OV_ODBC3), 0));
    }
    SQLHANDLE get() const { return m_handle.get(); }

private:
    Handle m_handle;
};

// Texts go and come as UTF-16: the server turns them into its own code page, and the connection has
// refused before what that page cannot hold.
class OdbcConnection : public data::Connection {
public:
    OdbcConnection(const QString& connectionString, const Waits& waits)
        : m_connection(SQL_HANDLE_DBC, m_environment.get()), m_waits(waits) {
        m_connection.check(
            SQLSetConnectAttrW(m_connection.get(), SQL_ATTR_LOGIN_TIMEOUT, attribute(waits.loginSeconds), 0));
        m_connection.check(SQLDriverConnectW(m_connection.get(), nullptr, wide(connectionString), SQL_NTS,
                                             nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
        m_isServer = driverSays(SQL_DBMS_NAME).contains(QLatin1String("SQL Server"), Qt::CaseInsensitive);
        if (m_isServer)
            prepareSession(*this, waits);
    }

    // The server undoes what is open when the line ends.
    ~OdbcConnection() override { SQLDisconnect(m_connection.get()); }

    QString rowIdentity(const QString& table) override {
        const Handle statement(SQL_HANDLE_STMT, m_connection.get());
        const bool global = table.startsWith(QLatin1String("##"));
        const QString catalog = QStringLiteral("tempdb");
        const bool known = statement.check(SQLPrimaryKeysW(statement.get(), global ? wide(catalog) : nullptr,
                                                           SQL_NTS, nullptr, 0, wide(table), SQL_NTS));
        constexpr int kColumnName = 3;
        const QList<data::ColumnInfo> columns = describe(statement);
        Row row(columns);
        QStringList keys;
        while (known && statement.check(SQLFetch(statement.get()))) {
            row.read(statement);
            keys.append(row.value(kColumnName).toString());
        }
        return keys.size() == 1 ? data::bracketed(keys.first()) : QString();
    }

protected:
    qint64 run(const QString& sql, const std::function<void(const QList<data::ColumnInfo>&)>& columns,
               const std::function<bool(const data::RowView&)>& row) override {
        const Handle statement(SQL_HANDLE_STMT, m_connection.get());
        qint64 affected = 0;
        if (m_waits.statementSeconds > 0)
            SQLSetStmtAttrW(statement.get(), SQL_ATTR_QUERY_TIMEOUT, attribute(m_waits.statementSeconds), 0);
        statement.check(SQLExecDirectW(statement.get(), wide(sql), SQL_NTS));
        do {
            const QList<data::ColumnInfo> described = describe(statement);
            if (described.isEmpty()) {
                SQLLEN count = -1;
                statement.check(SQLRowCount(statement.get(), &count));
                if (count >= 0)
                    affected = count;
            } else {
                columns(described);
                hand(statement, described, row);
            }
        } while (statement.check(SQLMoreResults(statement.get())));
        return affected;
    }

    // As texts: the driver's own calls fail for good once the server has ended the transaction by itself.
    void beginTransaction() override { command("Begin Transaction"); }
    void commitTransaction() override { command("Commit"); }
    void undoTransaction() override { command(m_isServer ? "If @@TranCount>0 Rollback" : "Rollback"); }

private:
    QString driverSays(SQLUSMALLINT what) const {
        SQLWCHAR text[128] = {};
        SQLSMALLINT length = 0;
        m_connection.check(SQLGetInfoW(m_connection.get(), what, text, sizeof text, &length));
        return QString::fromUtf16(reinterpret_cast<const char16_t*>(text));
    }

    void command(const char* text) {
        run(
            QString::fromLatin1(text), [](const QList<data::ColumnInfo>&) {},
            [](const data::RowView&) { return true; });
    }

    static void hand(const Handle& statement, const QList<data::ColumnInfo>& columns,
                     const std::function<bool(const data::RowView&)>& row) {
        Row current(columns);
        bool wanted = true;
        while (wanted && statement.check(SQLFetch(statement.get()))) {
            current.read(statement);
            wanted = row(current);
        }
    }

    Environment m_environment;
    Handle m_connection;
    Waits m_waits;
    bool m_isServer = false;  // or a driver over something else that speaks enough of its language
};

}  // namespace

std::unique_ptr<data::Connection> open(const QString& connectionString, const Waits& waits) {
    return std::make_unique<OdbcConnection>(connectionString, waits);
}

}  // namespace odbc
