#include "Odbc.h"

#include <bit>
#include <cstdint>

#include "Errors.h"
#include "Handles.h"
#include "Rows.h"

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
    explicit OdbcConnection(const QString& connectionString)
        : m_connection(SQL_HANDLE_DBC, m_environment.get()) {
        constexpr int kLoginSeconds = 15;
        m_connection.check(
            SQLSetConnectAttrW(m_connection.get(), SQL_ATTR_LOGIN_TIMEOUT, attribute(kLoginSeconds), 0));
        m_connection.check(SQLDriverConnectW(m_connection.get(), nullptr, wide(connectionString), SQL_NTS,
                                             nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
    }

    ~OdbcConnection() override {
        if (m_inTransaction)
            SQLEndTran(SQL_HANDLE_DBC, m_connection.get(), SQL_ROLLBACK);
        SQLDisconnect(m_connection.get());
    }

    void begin() override {
        Q_ASSERT(!m_inTransaction);
        setAutocommit(SQL_AUTOCOMMIT_OFF);
        m_inTransaction = true;
    }
    void commit() override { end(SQL_COMMIT); }
    void rollback() override { end(SQL_ROLLBACK); }
    bool inTransaction() const override { return m_inTransaction; }

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
        return keys.size() == 1 ? data::bracketed(keys.first()) : QStringLiteral("%%physloc%%");
    }

protected:
    qint64 run(const QString& sql, const std::function<void(const QList<data::ColumnInfo>&)>& columns,
               const std::function<bool(const data::RowView&)>& row) override {
        const Handle statement(SQL_HANDLE_STMT, m_connection.get());
        qint64 affected = 0;
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

private:
    static void hand(const Handle& statement, const QList<data::ColumnInfo>& columns,
                     const std::function<bool(const data::RowView&)>& row) {
        Row current(columns);
        bool wanted = true;
        while (wanted && statement.check(SQLFetch(statement.get()))) {
            current.read(statement);
            wanted = row(current);
        }
    }

    void setAutocommit(std::uintptr_t mode) {
        m_connection.check(
            SQLSetConnectAttrW(m_connection.get(), SQL_ATTR_AUTOCOMMIT, attribute(mode), SQL_IS_UINTEGER));
    }

    void end(SQLSMALLINT completion) {
        Q_ASSERT(m_inTransaction);
        m_connection.check(SQLEndTran(SQL_HANDLE_DBC, m_connection.get(), completion));
        m_inTransaction = false;
        setAutocommit(SQL_AUTOCOMMIT_ON);
    }

    Environment m_environment;
    Handle m_connection;
    bool m_inTransaction = false;
};

}  // namespace

std::unique_ptr<data::Connection> open(const QString& connectionString) {
    return std::make_unique<OdbcConnection>(connectionString);
}

}  // namespace odbc
