#include "PeopleCodes.h"

#include "Connection.h"
#include "References.h"

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

void movePeopleCodes(data::HostDatabase& db, const QString& table, const definition::CodeChanges& changes) {
    for (const definition::Reference& reference : definition::referencesTo(table))
        definition::changeCodes(db, reference.table, reference.column, changes);
}

}  // namespace orglists
