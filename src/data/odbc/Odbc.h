// SQL Server through ODBC.
#pragma once

#include <memory>

#include "Connection.h"

namespace odbc {

// How long the host lets the server take.
struct Waits {
    int loginSeconds = 15;
    int lockMilliseconds = 10'000;  // for rows that somebody else holds
    int statementSeconds = 60;      // 0 for as long as it takes
};

// Connects with an ODBC connection string ("DSN=…" or "Driver=…;Server=…;…"). Throws
// data::ServerError with the driver's text; a Refusal where the database or its user's rights will not do.
std::unique_ptr<data::Connection> open(const QString& connectionString, const Waits& waits = {});

}  // namespace odbc
