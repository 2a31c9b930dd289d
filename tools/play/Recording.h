// Every statement of a run with what it gave, as a text: two servers that mean the same write the same.
#pragma once

#include <memory>

#include "Connection.h"

namespace play {

// The connection, and a line of the file, which is added to, for each statement, row, count and error. Rows
// that no statement puts in order are sorted; work tables, which are named by the time, have one name.
std::unique_ptr<data::Connection> recorded(std::unique_ptr<data::Connection> connection, const QString& file);

// Where two such files differ first, for a reader; empty where they are the same.
QString firstDifference(const QString& oneFile, const QString& otherFile);

}  // namespace play
