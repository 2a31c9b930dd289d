// The six objects that a host owns and hands to the module, and the loading of the module itself.
#pragma once

#include <QLibrary>
#include <memory>

#include "Connection.h"
#include "DlgMsg.h"
#include "HostContext.h"
#include "Query.h"
#include "TempGridForm.h"

namespace host {

// The module shows its messages in `dlgMsg`: who lets the objects go sets the sink of the event
// boundary anew.
class HostObjects {
public:
    // Takes over the connection. `installDir` holds Data/, DLLS/, Help/ and the exports.
    HostObjects(std::unique_ptr<data::Connection> connection, const QString& installDir);
    HostObjects(const HostObjects&) = delete;
    HostObjects& operator=(const HostObjects&) = delete;

    data::HostContext global;  // company "01"+"01", user 1, prefix "W_", …: the fixture's values
    data::HostDate date;
    data::HostDatabase database;
    widgets::Form showStateForm;  // stored by the module, never used
    std::unique_ptr<TTempGridForm> tempGridForm;
    std::unique_ptr<TDlgMsg> dlgMsg;

    data::Connection& connection() { return *m_connection; }

private:
    std::unique_ptr<data::Connection> m_connection;
    data::Query m_query;
};

// Gives an installation folder the companion libraries that were built beside the program, and the help
// pages, where it has none of its own.
void provideCompanions(const QString& installDir);

// The loaded module. Its window lives inside `parent` until it is closed or released.
class Module {
public:
    // Throws data::Refusal when the library or an entry point is missing.
    explicit Module(const QString& libraryFile);
    ~Module();  // calls Release_It, then unloads

    void show(QWidget* parent, HostObjects& objects);  // Korvanta_Payment
    void release();                                    // Release_It
    // The base-information window, or null (the module's exported _SabtPageForm).
    widgets::Form* window() const;

private:
    QLibrary m_library;
    QFunctionPointer m_entry, m_release;
    widgets::Form** m_window;  // the module's variable
};

}  // namespace host
