#include "CodesByPlace.h"

#include <QSet>

#include "DatabaseHelpers.h"

namespace definition {

CodeChanges numberedByPlace(const QList<std::optional<qint64>>& before) {
    CodeChanges changes;
    QSet<qint64> known;
    qint64 place = 0;
    for (const std::optional<qint64>& code : before) {
        ++place;
        if (!code || known.contains(*code))
            continue;
        known.insert(*code);
        if (*code != place)
            changes[*code] = place;
    }
    for (qint64 code = 1; code <= place; ++code)
        if (!known.contains(code))
            changes[code] = std::nullopt;
    return changes;
}

void changeCodes(data::HostDatabase& db, const QString& table, const QString& column,
                 const CodeChanges& changes) {
    QStringList codes;
    QString cases;
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        codes.append(QString::number(change.key()));
        cases += " When " + codes.last() + " Then " +
                 (change.value() ? QString::number(*change.value()) : QStringLiteral("NULL"));
    }
    // The server refuses a choice of nothing but NULL.
    if (!codes.isEmpty())
        Exec_Sql(db, "Update " + table + " Set " + column + "=Case " + column + cases + " Else " + column +
                         " End Where " + column + " In (" + codes.join(u',') + ')');
}

}  // namespace definition
