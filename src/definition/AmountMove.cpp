#include "AmountMove.h"

#include <QMap>
#include <QSet>

#include "DatabaseHelpers.h"

namespace definition {
namespace {

QString amountColumn(qint64 code) {
    return "code_" + QString::number(code);
}

void addMissingColumns(data::HostDatabase& db, const AmountTable& amounts, const QString& month,
                       const QList<ItemCode>& items) {
    const bool hasNew = std::any_of(items.begin(), items.end(),
                                    [](const ItemCode& item) { return item.before == 0 && item.now != 0; });
    if (!hasNew || amounts.upgradeName.isEmpty())
        return;
    data::Query query(db.Connection);
    Add_PayItem_Columns(db, amounts.upgradeName, query, month);
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
        const QString source = amountColumn(item.before);
        if (columns.contains(source) && columns.contains(amountColumn(item.now)))
            values[item.now] = source;
    }
    QStringList assignments;
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        if (value.value() != amountColumn(value.key()))
            assignments.append(amountColumn(value.key()) + u'=' + value.value());
    if (!assignments.isEmpty())
        Exec_Sql(db, "Update " + amounts.name + " Set " + assignments.join(u',') +
                         " where codemah=" + data::quoted(month));
}

}  // namespace definition
