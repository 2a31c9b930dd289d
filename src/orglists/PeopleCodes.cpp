#include "PeopleCodes.h"

#include "DatabaseHelpers.h"
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
    if (moved.isEmpty())
        return;
    QString changes;
    QStringList before;
    for (const definition::ItemCode& item : moved) {
        before.append(QString::number(item.before));
        changes += " When " + before.last() + " Then " + QString::number(item.now);
    }
    Exec_Sql(*_MyDatabase, "Update person Set " + column + "=Case " + column + changes + " End Where " +
                               column + " In (" + before.join(u',') + u')');
}

}  // namespace orglists
