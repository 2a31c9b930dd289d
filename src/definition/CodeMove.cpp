#include "CodeMove.h"

#include <QSet>

#include "DatabaseHelpers.h"

namespace definition {

void moveCodes(data::HostDatabase& db, const QString& table, const QString& column,
               const QList<ItemCode>& items, const QString& condition) {
    QSet<qint64> known = {0};
    QStringList moved;
    QString changes;
    for (const ItemCode& item : items) {
        if (known.contains(item.before))
            continue;
        known.insert(item.before);
        if (item.before == item.now)
            continue;
        moved.append(QString::number(item.before));
        changes += " When " + moved.last() + " Then " + QString::number(item.now);
    }
    if (!moved.isEmpty())
        Exec_Sql(db, "Update " + table + " Set " + column + "=Case " + column + changes + " End Where " +
                         column + " In (" + moved.join(u',') + ')' + condition);
}

}  // namespace definition
