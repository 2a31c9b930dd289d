// Where operators edit the detail list of a mark (ShareList.h).
#pragma once

#include <QString>
#include <optional>

#include "Dataset.h"
#include "SuiteHost.h"

namespace definition {

// Lets the operator edit a list in the exemption window, over the items of `itemSource` (a FROM
// clause, left as they are). No value when he gives up; empty when no item has a share.
std::optional<QString> editItemShares(const SuiteHost& host, const QString& itemSource, const QString& list,
                                      const QString& caption);

// The same where one fixed amount may stand in place of the list. The window writes what he confirms, if it
// is not empty, into the field of the current row, sets the mark that it belongs to, and posts the row.
std::optional<QString> editSharesOrAmount(const SuiteHost& host, const QString& itemSource,
                                          data::Dataset& rows, const QString& field, const QString& mark);

}  // namespace definition
