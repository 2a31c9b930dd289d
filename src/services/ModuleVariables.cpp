#include "ModuleVariables.h"

extern "C" {
data::HostContext* _Global = nullptr;
data::HostDate* _MyDate = nullptr;
data::HostDatabase* _MyDatabase = nullptr;
widgets::Form* _ShowStateForm = nullptr;
TTempGridForm* _TempGridForm = nullptr;
TDlgMsg* _DlgMsg = nullptr;
}
