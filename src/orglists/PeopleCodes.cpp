#include "PeopleCodes.h"

#include "References.h"

namespace orglists {

void movePeopleCodes(data::HostDatabase& db, const QString& table, const definition::CodeChanges& changes) {
    for (const definition::Reference& reference : definition::referencesTo(table))
        definition::changeCodes(db, reference.table, reference.column, changes);
}

}  // namespace orglists
