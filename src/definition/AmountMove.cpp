#include "AmountMove.h"

#include <algorithm>

#include "DatabaseHelpers.h"

namespace definition {
QString amountColumn(const AmountTable& amounts, qint64 code) {
    return amounts.prefix + QString::number(code);
}

namespace {

// New items need columns of their own before anything moves.
void addMissingColumns(data::HostDatabase& db, const AmountTable& amounts, const QString& month,
                       const QList<ItemCode>& items) {
    QList<qint64> added;
    for (const ItemCode& item : items)
        if (item.before == 0 && item.now != 0)
            added.append(item.now);
    if (added.isEmpty())
        return;
    if (!amounts.upgradeName.isEmpty()) {
        data::Query query(db.Connection);
        Add_PayItem_Columns(db, amounts.upgradeName, query, month);
        return;
    }
    const QSet<QString> columns = Column_Names(db, amounts.name);
    for (const qint64 code : added)
        if (!columns.contains(amountColumn(amounts, code)))
            Exec_Sql(db, "Alter Table " + amounts.name + " Add " + amountColumn(amounts, code) +
                             " int not null default 0");
}

}  // namespace

void moveAmounts(data::HostDatabase& db, const AmountTable& amounts, const QString& month,
                 const QList<ItemCode>& items) {
    const auto stays = [](const ItemCode& item) { return item.before == item.now; };
    if (std::all_of(items.begin(), items.end(), stays))
        return;
    addMissingColumns(db, amounts, month, items);
    const QSet<QString> columns = Column_Names(db, amounts.name);
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
        Exec_Sql(db, "Update " + amounts.name + " Set " + assignments.join(u',') +
                         " where codemah=" + data::quoted(month));
}

}  // namespace definition
