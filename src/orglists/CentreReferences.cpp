#include "CentreReferences.h"

#include "DatabaseHelpers.h"
#include "TextHelpers.h"

namespace orglists {

void askLinkedField(data::Questions& questions, LinkedField& linked) {
    const std::pair<const char*, QString*> parts[] = {
        {"DBSNAME_M", &linked.database}, {"TBLNAME_M", &linked.table}, {"FLDNAME_M", &linked.field}};
    for (const auto& part : parts) {
        const QString key = QLatin1String(part.first);
        questions.ask(" Select ERTEBAT From Options Where SCode =" + data::quoted(key),
                      [key, text = part.second](const data::ResultSet& found) {
                          *text = Get_Param(data::valueText(found.rows.value(0).value(0)), key).trimmed();
                      });
    }
}

bool isLinked(data::HostDatabase& db, const QString& code, const LinkedField& linked) {
    const bool isLinked = !linked.database.isEmpty() && !linked.table.isEmpty() && !linked.field.isEmpty();
    return isLinked && Finds_Row(db, " Select " + linked.field + " From " + linked.database + ".." +
                                         linked.table + " Where " + linked.field + u'=' + data::quoted(code));
}

void giveCentreRights(data::HostDatabase& db, int user, const QStringList& codes) {
    QStringList quoted;
    for (const QString& code : codes)
        quoted.append(data::quoted(code));
    if (quoted.isEmpty())
        return;
    const QString those = " In (" + quoted.join(u',') + ')';
    Exec_Sql(db, "Delete From UserPrivilege Where TableName='TAFSILY2' And FieldCode" + those +
                     "\nInsert Into UserPrivilege(UserId, TableName, FieldCode) Select " +
                     data::quoted(QString::number(user)) +
                     ", 'TAFSILY2', Tafsily2 From Tafsily2 Where Tafsily2" + those);
}

void keepCentreRights(data::HostDatabase& db, int user, const QString& before, const QString& now) {
    // Rights to a centre that is long gone are none to the one that gets its code.
    if (before.trimmed().compare(now.trimmed(), Qt::CaseInsensitive) != 0)
        Exec_Sql(db,
                 "Delete From UserPrivilege Where TableName='TAFSILY2' And FieldCode=" + data::quoted(now));
    if (before.trimmed().isEmpty())
        Exec_Sql(db, "Insert Into UserPrivilege(UserId, TableName, FieldCode) Select " +
                         data::quoted(QString::number(user)) + ", 'TAFSILY2', " + data::quoted(now));
    else if (before != now)
        Exec_Sql(db, "Update UserPrivilege Set FieldCode=" + data::quoted(now) +
                         " Where TableName='TAFSILY2' And FieldCode=" + data::quoted(before));
}

}  // namespace orglists
