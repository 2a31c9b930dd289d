#include "PeopleCodes.h"

#include "Connection.h"

namespace orglists {

bool findsRow(data::HostDatabase& db, const QString& statement) {
    bool found = false;
    db.Connection->stream(
        statement, [](const QList<data::ColumnInfo>&) {},
        [&](const data::RowView&) {
            found = true;
            return false;
        });
    return found;
}

bool isUsedByPeople(data::HostDatabase& db, const QString& column, std::optional<qint64> code) {
    return code && findsRow(db, "Select * from person where " + column + u'=' + QString::number(*code));
}

void movePeopleCodes(data::HostDatabase& db, const QString& column, const definition::CodeChanges& changes) {
    definition::changeCodes(db, QStringLiteral("person"), column, changes);
}

}  // namespace orglists
