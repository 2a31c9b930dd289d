#include "PeopleCodes.h"

#include "CodeMove.h"
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

bool isUsedByPeople(const QString& column, qint64 code) {
    return findsRow("Select * from person where " + column + u'=' + QString::number(code));
}

void movePeopleCodes(const QString& column, const QList<definition::ItemCode>& moved) {
    definition::moveCodes(*_MyDatabase, QStringLiteral("person"), column, moved);
}

}  // namespace orglists
