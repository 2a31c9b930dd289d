// The embedded database of a company that fits one machine: a SQLite file that answers T-SQL with SQL
// Server's meaning and words.
#pragma once

#include <memory>

#include "Connection.h"

namespace tsql {

enum class OpenMode {
    Existing,  // the file must be there and be a database
    Create     // made when missing
};

// Opens a company file (":memory:" for a private one). Connections of one process to one file share
// its handle, and with it the "##" tables. Throws data::ServerError when the file cannot be opened, is
// locked by another process or is damaged. The procedures that a company database owns are there.
std::unique_ptr<data::Connection> open(const QString& file, OpenMode mode);

// From now on the engine tells rows apart as a server does: by a key, and where there is none not at all.
void hideRowPlaces();

}  // namespace tsql
