// The module-wide variables, exported under these names so that the host can reach them. Each is null
// until the entry point has stored what the host handed over.
#pragma once

#include "DlgMsg.h"
#include "HostContext.h"
#include "TempGridForm.h"

extern "C" {
extern data::HostContext* _Global;
extern data::HostDate* _MyDate;
extern data::HostDatabase* _MyDatabase;
extern widgets::Form* _ShowStateForm;
extern TTempGridForm* _TempGridForm;
extern TDlgMsg* _DlgMsg;
}
