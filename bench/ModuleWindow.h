// The module's window on a company, as the host shows it.
#pragma once

#include <QTemporaryDir>
#include <QWidget>

#include "HostObjects.h"

namespace bench {

class ModuleWindow {
public:
    // Throws std::runtime_error when the window does not open. Any message of the module ends the
    // program: what was to be measured did not happen.
    explicit ModuleWindow(const QString& companyFile);
    explicit ModuleWindow(std::unique_ptr<data::Connection> company);

    widgets::Form& form() { return *m_module.window(); }
    data::Connection& connection() { return m_objects.connection(); }
    data::ResultSet execute(const QString& sql) { return connection().execute(sql); }
    // Closes the window and opens a new one, which shows the salary page.
    void reopen();

private:
    QTemporaryDir m_folder;
    host::HostObjects m_objects;
    QWidget m_canvas;
    host::Module m_module;
};

}  // namespace bench
