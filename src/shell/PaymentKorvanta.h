// The entry points that the suite's host calls, all on its user-interface thread.
#pragma once

#include <QWidget>

#include "ModuleVariables.h"

extern "C" {

// Stores the host's objects and shows the base-information window; the first call makes the window
// inside `parent`, which it fills. None of the pointers may be null, and all of them outlive the window.
// Where the window cannot be shown, the operator reads why and no window is left.
void Korvanta_Payment(QWidget* parent, data::HostContext* global, data::HostDate* date,
                      data::HostDatabase* database, widgets::Form* showStateForm, TTempGridForm* tempGridForm,
                      TDlgMsg* dlgMsg);

// Destroys the window if there is one.
void Release_It();
}
