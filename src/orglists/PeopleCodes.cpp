#include "PeopleCodes.h"

#include "ModuleVariables.h"

namespace orglists {

bool findsRow(const QString& statement) {
    bool found = false;
    _MyDatabase->Connection->stream(
        statement, [](const QList<data::ColumnInfo>&) {},
        [&](const data::RowView&) {
            found = true;
            return false;
        });
    return found;
}

bool isUsedByPeople(const QString& column, std::optional<qint64> code) {
    return code && findsRow("Select * from person where " + column + u'=' + QString::number(*code));
}

void movePeopleCodes(const QString& column, const definition::CodeChanges& changes) {
    definition::changeCodes(*_MyDatabase, QStringLiteral("person"), column, changes);
}

}  // namespace orglists
