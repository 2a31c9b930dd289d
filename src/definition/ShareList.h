// The detail list of a mark: how an amount is made up of shares of the month's salary items, as the
// text (code_1*100)+(code_4*50), at most 200 characters.
#pragma once

#include <QList>
#include <QString>
#include <functional>
#include <optional>

namespace definition {

struct ItemShare {
    qint64 code = 0;
    double share = 0;
    QString text;  // the share as it is written
};

// The shares that a list names. No value when the text is not such a list.
std::optional<QList<ItemShare>> parseItemShares(const QString& list);

// The list with another code for each of its items; one that gets 0 goes. A text that is no list stays as
// it is, and so does a list in which nothing changes.
QString renumberShares(const QString& list, const std::function<qint64(qint64)>& now);

// Refuses a renumbered list for which its column has no room, and names the row that it is of. A room of 0
// has no limit.
void requireRoom(const QString& list, qsizetype room, const QString& title, const QString& row);

}  // namespace definition
