// sysobjects and syscolumns, of the company's database and of tempdb.
#pragma once

#include "Catalogue.h"

namespace tsql {

// What the binder knows of them.
std::vector<std::unique_ptr<Table>> systemTables();
// Makes them in a freshly opened file's own temporary schema.
void createSystemViews(const Handle& handle);

}  // namespace tsql
