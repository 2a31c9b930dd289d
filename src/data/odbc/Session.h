// What a session on SQL Server must be like before the module works in it.
#pragma once

#include "Connection.h"
#include "Odbc.h"

namespace odbc {

// Gives the session the settings that the module counts on, and looks at the database and at what its user
// may do. A Refusal names what is missing: told at once, and not in the middle of a confirmation.
void prepareSession(data::Connection& connection, const Waits& waits);

}  // namespace odbc
