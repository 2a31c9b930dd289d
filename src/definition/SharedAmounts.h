// Several pages have the employees' amounts of their rows in the same columns of one table.
#pragma once

#include <QHash>

#include "HostContext.h"
#include "References.h"
#include "Renumbering.h"

namespace definition {

// What the operator has to agree to before the rows of a table take columns that were no row's of it: how
// many employees have amounts there that would be lost, and which rows of other pages the column belongs
// to as well. Empty where no amount is lost, and where no other page has amounts in that table. `columns`
// are those of the amounts' table.
QString lostAmounts(data::HostDatabase& db, const QString& table, const QString& month,
                    const Reference& amounts, const Renumbering& renumbering,
                    const QHash<QString, int>& columns);

}  // namespace definition
