// The server is waited for: after half a second the operator sees so, and may give the statement up.
#pragma once

#include <memory>

#include "Connection.h"

namespace widgets {

// For data::Connection::setPatience. A wait in the midst of a Progress shows in that one; a statement sent
// outside a Step, or in a Silence, is waited for without a word.
std::unique_ptr<data::Patience> waitForServer();

}  // namespace widgets
