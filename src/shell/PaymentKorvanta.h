// The entry points that the suite's host calls, all on its user-interface thread.
#pragma once

#include <QWidget>

#include "ModuleVariables.h"

extern "C" {

// Stores the host's objects and shows the base-information window; the first call makes the window
// inside `parent`, which it fills. None of the pointers may be null, and all of them outlive the window.
// Where the window cannot be shown, the operator reads why and no window is left. While the module reads
// in a step that shows progress, the call is kept until that step has ended.
void Korvanta_Payment(QWidget* parent, data::HostContext* global, data::HostDate* date,
                      data::HostDatabase* database, widgets::Form* showStateForm, TTempGridForm* tempGridForm,
                      TDlgMsg* dlgMsg);

// Destroys the window if there is one, and asks nothing: a row in edit of a direct page is stored where
// that is possible, everything else that was not stored is dropped. May be called at any moment, from
// within a message as well; what stands open ends unanswered.
void Release_It();

// Forms of the suite's charts, which none of this window's pages has.
extern widgets::Form *_GrafForm, *_GrafColSetForm;
}
