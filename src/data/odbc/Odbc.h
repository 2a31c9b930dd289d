// SQL Server through ODBC.
#pragma once

#include <memory>

#include "Connection.h"

namespace odbc {

// Connects with an ODBC connection string ("DSN=…" or "Driver=…;Server=…;…"). Throws
// data::ServerError with the driver's text.
std::unique_ptr<data::Connection> open(const QString& connectionString);

}  // namespace odbc
