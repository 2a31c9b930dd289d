#include "AmountMove.h"

#include <QMap>
#include <QSet>

#include "DatabaseHelpers.h"

namespace definition {
namespace {

QString amountColumn(qint64 code) {
    return "code_" + QString::number(code);
}

// Lower-case names of the table's columns.
QSet<QString> columnsOf(data::HostDatabase& db, const QString& table) {
    data::Query query(db.Connection);
    query.setSql(
        "Select C.[Name] From syscolumns As C inner join sysobjects As O On(C.[id]=O.[id]) where O.[Name]=" +
        data::quoted(table));
    QSet<QString> columns;
    for (query.open(); !query.eof(); query.next())
        columns.insert(query.text(0).toLower());
    return columns;
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
    const QSet<QString> columns = columnsOf(db, amounts.name);
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
