// Employees' records hold the codes of the organisation's lists, a column a list.
#pragma once

#include "CodesByPlace.h"

namespace orglists {

// Whether the statement finds a row.
bool findsRow(data::HostDatabase& db, const QString& statement);

// Whether an employee's record has the code in that column; a row without one is nobody's.
bool isUsedByPeople(data::HostDatabase& db, const QString& column, std::optional<qint64> code);

// Gives everybody the new code of what he had. Part of the caller's transaction.
void movePeopleCodes(data::HostDatabase& db, const QString& column, const definition::CodeChanges& changes);

}  // namespace orglists
