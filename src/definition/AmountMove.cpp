#include "AmountMove.h"

#include <QMap>
#include <QSet>

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
    addMissingColumns(db, amounts, month, items);
    const QSet<QString> columns = Column_Names(db, amounts.name);
    // By column written; a later item of the same code counts, as if each were written in turn.
    QMap<qint64, QString> values;
    for (const ItemCode& item : items) {
        if (item.now == 0)
            continue;  // "code_0" is the employee's own code
        if (item.before == 0) {
            values[item.now] = QStringLiteral("0");
            continue;
        }
        const QString source = amountColumn(amounts, item.before);
        if (columns.contains(source) && columns.contains(amountColumn(amounts, item.now)))
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
