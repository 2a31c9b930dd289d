// The server's refusals in the operator's words.
#pragma once

#include "Errors.h"

namespace definition {

// A repeated key, a missing value, or any other trouble with storing.
QString postErrorText(const data::ServerError& error);

}  // namespace definition
