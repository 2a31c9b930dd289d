// The suite's help: one page a keyword, "Help/<keyword>.html" below the installation folder.
#pragma once

#include "HostContext.h"

// Opens a page with the program of its kind. Refusal when it is not there or nothing can show it.
void Open_Help(const data::HostContext& context, const QString& keyword);
