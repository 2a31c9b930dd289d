// The SQLite file under a company and its prepared statements.
#pragma once

#include <sqlite3.h>

#include <QString>
#include <memory>
#include <string>
#include <string_view>

#include "Name.h"

namespace tsql {

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using PreparedStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

class Handle {
public:
    // Throws ServerError when the file cannot be opened, is locked or is no company.
    Handle(const QString& file, bool create);
    ~Handle();
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    sqlite3* get() const { return m_handle; }
    // `sql` is one statement of SQLite's own. Throws ServerError.
    PreparedStatement prepare(std::string_view sql) const;
    // Runs one statement and drops its rows.
    void run(std::string_view sql) const;
    // First value of the first row, 0 without one.
    qint64 number(std::string_view sql) const;
    // Whether a transaction is open.
    bool inTransaction() const { return sqlite3_get_autocommit(m_handle) == 0; }
    // Throws ServerError for what SQLite has just refused.
    [[noreturn]] void fail() const;

private:
    void prepareFile();
    void renewIndexes();
    [[noreturn]] void refuseEqualKeys(const QString& columns);

    sqlite3* m_handle = nullptr;
};

// Undoes what is done in its life unless released; for steps that stand or fall together.
class Savepoint {
public:
    explicit Savepoint(const Handle& handle);
    ~Savepoint();
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;
    void release();

private:
    const Handle& m_handle;
    bool m_open = true;
};

// The text of a column of the row that the statement stands on; empty for NULL.
QString columnText(sqlite3_stmt* statement, int column);
// The text as it is, in UTF-8.
void appendUtf8(std::string& sql, QStringView text);
// "name", with quotes doubled.
void appendName(std::string& sql, QStringView name);
std::string quotedName(QStringView name);
// 'text', with quotes doubled.
void appendText(std::string& sql, QStringView text);

}  // namespace tsql
