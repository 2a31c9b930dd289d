// A company's database as the host keeps it: a file of its own, made from the scripts in schema/.
#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "Connection.h"

namespace host {

// What a company file is filled with.
struct DemoSize {
    int employees = 240;
};

// Makes a company file: every table and procedure, and the rows that each company needs. Throws
// data::ServerError; an existing file is a data::Refusal, never overwritten.
void createEmptyCompany(const QString& file);
// The same, filled with a believable company in month 7; the same rows on every machine.
void createDemoCompany(const QString& file, const DemoSize& size = {});

// The same on any connection to a database that holds no company yet, in one transaction: on a server, where
// the procedures are made as well.
void createCompanyOn(data::Connection& connection, const std::optional<DemoSize>& demo = {});
// Whether the database holds a company.
bool holdsCompany(data::Connection& connection);

// Runs a script file whose batches are separated by lines that hold GO alone.
void runScript(data::Connection& connection, const QString& scriptFile);
// The folder of schema/: beside the program when installed, else in the source tree.
QString schemaFolder();

}  // namespace host
