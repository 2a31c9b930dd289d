// What the host itself says, in the suite's own dialog.
#pragma once

#include "DlgMsg.h"

namespace host {

// A notice with one button.
void notify(TDlgMsg& dialog, const QString& text);
// A yes/no question; true for yes.
bool ask(TDlgMsg& dialog, const QString& text);

}  // namespace host
