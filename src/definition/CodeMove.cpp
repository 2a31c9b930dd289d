#include "CodeMove.h"

#include <QSet>

#include "DatabaseHelpers.h"

namespace definition {

CodeChanges numberedByPlace(const QList<std::optional<qint64>>& before) {
    CodeChanges changes;
    QSet<qint64> known;
    for (qsizetype row = 0; row < before.size(); ++row) {
        const std::optional<qint64> code = before[row];
        if (!code || known.contains(*code))
            continue;
        known.insert(*code);
        if (*code != row + 1)
            changes[*code] = row + 1;
    }
    for (qint64 code = 1; code <= before.size(); ++code)
        if (!known.contains(code))
            changes[code] = std::nullopt;
    return changes;
}

void changeCodes(data::HostDatabase& db, const QString& table, const QString& column,
                 const CodeChanges& changes, const QString& condition) {
    QStringList codes;
    QString cases;
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        codes.append(QString::number(change.key()));
        cases += " When " + codes.last() + " Then " +
                 (change.value() ? QString::number(*change.value()) : QStringLiteral("NULL"));
    }
    // The server wants to see one value that is not NULL.
    if (!codes.isEmpty())
        Exec_Sql(db, "Update " + table + " Set " + column + "=Case " + column + cases + " Else " + column +
                         " End Where " + column + " In (" + codes.join(u',') + ')' + condition);
}

void moveCodes(data::HostDatabase& db, const QString& table, const QString& column,
               const QList<ItemCode>& items, const QString& condition) {
    CodeChanges changes;
    QSet<qint64> known = {0};
    for (const ItemCode& item : items) {
        if (known.contains(item.before))
            continue;
        known.insert(item.before);
        if (item.before != item.now)
            changes[item.before] = item.now;
    }
    changeCodes(db, table, column, changes, condition);
}

}  // namespace definition
