#include "CodesByPlace.h"

#include <QSet>

#include "CodeMove.h"
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
    QList<std::pair<QString, QString>> literals;
    for (const auto [before, now] : changes.asKeyValueRange())
        literals.append({QString::number(before), now ? QString::number(*now) : QStringLiteral("NULL")});
    if (!literals.isEmpty())
        Exec_Sql(db, exchangeStatement(table, column, literals));
}

}  // namespace definition
