// The detail list of a mark: how an amount is made up of shares of the month's salary items, as the
// text (code_1*100)+(code_4*50), at most 200 characters.
#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "Dataset.h"

namespace definition {

struct ItemShare {
    qint64 code = 0;
    double share = 0;
};

// The shares that a list names. No value when the text is not such a list.
std::optional<QList<ItemShare>> parseItemShares(const QString& list);

// Lets the operator edit a list in the exemption window, over the items of `itemSource` (a FROM
// clause, left as they are). No value when he gives up; empty when no item has a share.
std::optional<QString> editItemShares(const QString& itemSource, const QString& list, const QString& caption);

// The same where one fixed amount may stand in place of the list. The window writes what he confirms
// into the field of the current row and posts it. False when he gives up.
bool editSharesOrAmount(const QString& itemSource, data::Dataset& rows, const QString& field);

}  // namespace definition
