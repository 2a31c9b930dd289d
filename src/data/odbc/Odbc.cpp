#include "Odbc.h"

#include <QHash>
#include <QScopedValueRollback>
#include <QSemaphore>
#include <QThreadPool>
#include <bit>
#include <cstdint>
#include <optional>

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
        : m_connectionString(connectionString), m_waits(waits) {
        OdbcConnection::makeSession();
    }

    // The server undoes what is open when the line ends.
    ~OdbcConnection() override { disconnect(); }

    QString rowIdentity(const QString& table) override {
        const auto known = m_identities.constFind(table);
        return known != m_identities.constEnd() ? *known : *m_identities.insert(table, askIdentity(table));
    }

protected:
    QString askIdentity(const QString& table) const {
        const Handle statement(SQL_HANDLE_STMT, m_connection->get());
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

    void makeSession() override {
        disconnect();
        m_identities.clear();
        m_begins = false;
        m_connection.emplace(SQL_HANDLE_DBC, m_environment.get());
        m_connection->check(SQLSetConnectAttrW(m_connection->get(), SQL_ATTR_LOGIN_TIMEOUT,
                                               attribute(m_waits.loginSeconds), 0));
        m_connection->check(SQLDriverConnectW(m_connection->get(), nullptr, wide(m_connectionString), SQL_NTS,
                                              nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
        m_isServer = driverSays(SQL_DBMS_NAME).contains(QLatin1String("SQL Server"), Qt::CaseInsensitive);
        if (m_isServer)
            prepareSession(*this, m_waits);
    }

    qint64 run(const QString& sql, const std::function<void(const QList<data::ColumnInfo>&)>& columns,
               const std::function<bool(const data::RowView&)>& row) override {
        if (m_busy)
            throw data::ServerError(QStringLiteral("The connection is busy with another statement."));
        const QScopedValueRollback busy(m_busy, true);
        try {
            return runAlone(std::exchange(m_begins, false) ? "Begin Transaction\n" + sql : sql, columns, row);
        } catch (const data::ServerError& error) {
            // A driver does not always say what it is that has gone.
            if (error.fault() == data::Fault::Other && error.number() == 0 && isDead())
                throw data::ServerError(error.text(), data::Fault::LineLost);
            throw;
        }
    }

    // As texts: the driver's own calls fail for good once the server has ended the transaction by itself.
    // A server begins with the first statement: that is one wait less.
    void beginTransaction() override {
        m_begins = m_isServer;
        if (!m_begins)
            command("Begin Transaction");
    }
    void commitTransaction() override {
        if (!std::exchange(m_begins, false))
            command("Commit");
    }
    void undoTransaction() override {
        if (!std::exchange(m_begins, false))
            command(m_isServer ? "If @@TranCount>0 Rollback" : "Rollback");
    }

private:
    bool isDead() const {
        SQLUINTEGER dead = SQL_CD_FALSE;
        return SQL_SUCCEEDED(SQLGetConnectAttrW(m_connection->get(), SQL_ATTR_CONNECTION_DEAD, &dead,
                                                SQL_IS_UINTEGER, nullptr)) &&
               dead == SQL_CD_TRUE;
    }

    qint64 runAlone(const QString& sql, const std::function<void(const QList<data::ColumnInfo>&)>& columns,
                    const std::function<bool(const data::RowView&)>& row) {
        const Handle statement(SQL_HANDLE_STMT, m_connection->get());
        const std::unique_ptr<data::Patience> patience = newPatience();
        qint64 affected = 0;
        if (m_waits.statementSeconds > 0 && !(patience && patience->isSeen()))
            SQLSetStmtAttrW(statement.get(), SQL_ATTR_QUERY_TIMEOUT, attribute(m_waits.statementSeconds), 0);
        const auto answered = [&](const std::function<SQLRETURN()>& call) {
            return await(statement, patience.get(), call);
        };
        answered([&] { return SQLExecDirectW(statement.get(), wide(sql), SQL_NTS); });
        do {
            const QList<data::ColumnInfo> described = describe(statement);
            if (described.isEmpty()) {
                SQLLEN count = -1;
                statement.check(SQLRowCount(statement.get(), &count));
                if (count >= 0)
                    affected = count;
            } else {
                columns(described);
                Row current(described);
                const auto fetch = [&] { return SQLFetch(statement.get()); };
                // The first row is what the server sorts and looks for; those behind it come at once.
                for (bool more = answered(fetch); more; more = statement.check(fetch())) {
                    current.read(statement);
                    if (!row(current))
                        break;
                }
            }
        } while (answered([&] { return SQLMoreResults(statement.get()); }));
        return affected;
    }

    QString driverSays(SQLUSMALLINT what) const {
        SQLWCHAR text[128] = {};
        SQLSMALLINT length = 0;
        m_connection->check(SQLGetInfoW(m_connection->get(), what, text, sizeof text, &length));
        return QString::fromUtf16(reinterpret_cast<const char16_t*>(text));
    }

    void command(const char* text) {
        run(
            QString::fromLatin1(text), [](const QList<data::ColumnInfo>&) {},
            [](const data::RowView&) { return true; });
    }

    void disconnect() {
        if (m_connection)
            SQLDisconnect(m_connection->get());
        m_connection.reset();
    }

    // The call, waited for with patience where there is any: in a thread of its own meanwhile, for no driver
    // at hand lets itself be asked whether it is done.
    bool await(const Handle& statement, data::Patience* patience, const std::function<SQLRETURN()>& call) {
        if (!patience)
            return statement.check(call());
        constexpr int kLook = 20;  // milliseconds between two looks at the operator
        QSemaphore done;
        SQLRETURN code = SQL_ERROR;
        m_thread.start([&] {
            code = call();
            done.release();
        });
        bool givenUp = false;
        while (!done.tryAcquire(1, kLook)) {
            if (!givenUp && !patience->goOn()) {
                givenUp = true;
                SQLCancel(statement.get());
            }
        }
        if (givenUp && !SQL_SUCCEEDED(code))
            throw data::ServerError(QStringLiteral("The statement was given up."), data::Fault::GivenUp);
        return statement.check(code);
    }

    Environment m_environment;
    const QString m_connectionString;
    const Waits m_waits;
    std::optional<Handle> m_connection;
    QThreadPool m_thread;
    QHash<QString, QString> m_identities;  // by table
    bool m_busy = false;
    bool m_begins = false;    // the next statement begins a transaction
    bool m_isServer = false;  // or a driver over something else that speaks enough of its language
};

}  // namespace

std::unique_ptr<data::Connection> open(const QString& connectionString, const Waits& waits) {
    return std::make_unique<OdbcConnection>(connectionString, waits);
}

}  // namespace odbc
