#include "AmountMove.h"

#include <algorithm>

#include "DatabaseHelpers.h"

namespace definition {
namespace {

QString amountColumn(const AmountTable& amounts, qint64 code) {
    return amounts.prefix + QString::number(code);
}

// New items need columns of their own before anything moves.
QStringList newColumns(const AmountTable& amounts, const QList<ItemCode>& items, QSet<QString>& columns) {
    QSet<QString> added;
    for (const ItemCode& item : items)
        if (item.before == 0 && item.now != 0)
            added.insert(amountColumn(amounts, item.now));
    added.subtract(columns);
    if (added.isEmpty())
        return {};
    columns.unite(added);
    if (!amounts.upgradeName.isEmpty())
        return payItemColumns(amounts.upgradeName, columns - added, items.size());
    QStringList statements;
    for (const QString& column : added)
        statements.append("Alter Table " + amounts.name + " Add " + column + " int not null default 0");
    statements.sort();
    return statements;
}

}  // namespace

AmountMove amountMove(const AmountTable& amounts, const QString& month, const QList<ItemCode>& items,
                      QSet<QString> columns) {
    const auto stays = [](const ItemCode& item) { return item.before == item.now; };
    if (std::all_of(items.begin(), items.end(), stays))
        return {};
    AmountMove move = {newColumns(amounts, items, columns), {}};
    QSet<qint64> followed = {0};
    QMap<qint64, QString> values;  // by column written
    for (const ItemCode& item : items) {
        if (item.now == 0 || values.contains(item.now))
            continue;  // "code_0" is the employee's own code
        const QString target = amountColumn(amounts, item.now);
        if (followed.contains(item.before)) {
            if (item.before == 0 || columns.contains(target))
                values[item.now] = QStringLiteral("0");
            continue;
        }
        followed.insert(item.before);
        const QString source = amountColumn(amounts, item.before);
        if (columns.contains(source) && columns.contains(target))
            values[item.now] = source;
    }
    QStringList assignments;
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        if (value.value() != amountColumn(amounts, value.key()))
            assignments.append(amountColumn(amounts, value.key()) + u'=' + value.value());
    if (!assignments.isEmpty())
        move.statement = "Update " + amounts.name + " Set " + assignments.join(u',') +
                         " where codemah=" + data::quoted(month);
    return move;
}

}  // namespace definition
