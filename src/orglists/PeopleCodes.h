// Employees' records hold the codes of the organisation's lists, a column a list.
#pragma once

#include "AmountMove.h"

namespace orglists {

// Whether the statement finds a row.
bool findsRow(const QString& statement);

// Whether an employee's record has the code in that column.
bool isUsedByPeople(const QString& column, qint64 code);

// Gives everybody the new code of what he had, all in one pass, so that no two rows' employees get mixed.
// Part of the caller's transaction.
void movePeopleCodes(const QString& column, const QList<definition::ItemCode>& moved);

}  // namespace orglists
