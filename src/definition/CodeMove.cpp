#include "CodeMove.h"

#include <QSet>

#include "DatabaseHelpers.h"

namespace definition {

QString exchangeStatement(const QString& table, const QString& column,
                          const QList<std::pair<QString, QString>>& literals, const QString& condition) {
    if (literals.isEmpty())
        return {};
    QStringList held;
    QString changes;
    for (const auto& [from, to] : literals) {
        held.append(from);
        changes += " When " + from + " Then " + to;
    }
    return "Update " + table + " Set " + column + "=Case " + column + changes + " End Where " + column +
           " In (" + held.join(u',') + ')' + condition;
}

void moveCodes(data::HostDatabase& db, const QString& table, const QString& column,
               const QList<ItemCode>& items, const QString& condition) {
    QSet<qint64> known = {0};
    QList<std::pair<QString, QString>> moved;
    for (const ItemCode& item : items) {
        if (known.contains(item.before))
            continue;
        known.insert(item.before);
        if (item.before != item.now)
            moved.append({QString::number(item.before), QString::number(item.now)});
    }
    Exec_Sql(db, exchangeStatement(table, column, moved, condition));
}

}  // namespace definition
