// Employees' records hold the codes of the organisation's lists, a column a list.
#pragma once

#include "CodesByPlace.h"

namespace orglists {

// Gives everybody the new code of what he had of the list `table`. Part of the caller's transaction.
void movePeopleCodes(data::HostDatabase& db, const QString& table, const definition::CodeChanges& changes);

}  // namespace orglists
