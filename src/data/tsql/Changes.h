// INSERT, UPDATE and DELETE as SQLite's statements, written into the binder's text.
#pragma once

#include "Binder.h"

namespace tsql {

// Each returns the table that changes.
const Table& bindInsert(Binder& binder, const InsertStatement& statement);
const Table& bindUpdate(Binder& binder, const UpdateStatement& statement);
const Table& bindDelete(Binder& binder, const DeleteStatement& statement);

// The place in `from` of the table that a change names, by alias or by name; -1 when it is not there.
int targetPlace(const ObjectName& target, std::span<const TableReference> from);
// The table to change; catalogue views are refused.
const Table& changeable(Binder& binder, const ObjectName& name);

}  // namespace tsql
