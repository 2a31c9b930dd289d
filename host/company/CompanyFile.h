// What the two kinds of company share: the file, its tables and first rows, in one transaction.
#pragma once

#include <QString>
#include <functional>

#include "HostCompany.h"

namespace host {

// Makes the file, runs the scripts of every company and then `fill`. Leaves no file when one of them
// fails, or when the program is ended half-way. Throws data::Refusal when the file exists or its folder
// cannot be written to, data::ServerError when the database refuses.
void createCompanyFile(const QString& file, const std::function<void(data::Connection&)>& fill);

// Fills an empty company with the demonstration's rows.
void fillDemo(data::Connection& connection, const DemoSize& size);

}  // namespace host
