// The server's refusals in the operator's words.
#pragma once

#include "Errors.h"

namespace definition {

// A repeated key (unless it is told like any other trouble), a missing value, or any other trouble with
// storing.
QString postErrorText(const data::ServerError& error, bool tellsRepeatedKeys = true);

}  // namespace definition
