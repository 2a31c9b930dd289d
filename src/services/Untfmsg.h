// The one way in which the module speaks to the operator.
#pragma once

#include "Connection.h"
#include "DlgMsg.h"
#include "Errors.h"

// Shows a text in the host's message dialog and returns the modal result: 1 OK, 2 Cancel, 6 Yes, 7 No.
// An empty title takes the dialog's default. The code chooses buttons (1 OK; 2 OK and Cancel; 3 Yes and
// No) and icon (W, Q, E, S, I); its third letter is of no effect.
int Show_Msg(const QString& text, const QString& title, const QString& code);

// While it stands no message opens: what would be said is thrown, as a data::Refusal.
class Overheard {
public:
    Overheard();
    ~Overheard();
    Overheard(const Overheard&) = delete;
    Overheard& operator=(const Overheard&) = delete;
};

// The line to the server is cut: says what has become of the operator's work, and makes the line anew if he
// wants, as often as it takes.
void Offer_Reconnection(data::Connection& connection, const data::ServerError& error);

// Buttons, icon and the memo's place for a code of three upper-case characters.
void Set_Msg_Buttons(TDlgMsg& dialog, const QString& code);
