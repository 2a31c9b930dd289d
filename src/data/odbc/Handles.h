// ODBC's handles, and what a driver says when it refuses.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <QString>

namespace odbc {

// An environment, connection or statement; freed when it goes.
class Handle {
public:
    Handle(SQLSMALLINT type, SQLHANDLE parent);
    ~Handle();
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    SQLHANDLE get() const { return m_handle; }
    // Whether the call found something: false for SQL_NO_DATA. Throws data::ServerError with the
    // server's words and number when it failed.
    bool check(SQLRETURN code) const;

private:
    [[noreturn]] void refuse() const;

    SQLSMALLINT m_type;
    SQLHANDLE m_handle = SQL_NULL_HANDLE;
};

// A driver's message without the "[maker][driver][server]" in front of the server's own words.
QString serverWords(const QString& message);

// UTF-16 as ODBC's wide calls take it; they never write through the pointer of an input.
SQLWCHAR* wide(const QString& text);

}  // namespace odbc
