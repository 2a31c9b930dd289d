#include "CentreReferences.h"

#include "DatabaseHelpers.h"
#include "PeopleCodes.h"
#include "TextHelpers.h"

namespace orglists {
namespace {

QString linkOption(data::HostDatabase& db, const QString& key) {
    data::Query query(db.Connection);
    query.setSql(" Select ERTEBAT From Options Where SCode =" + data::quoted(key));
    query.open();
    return Get_Param(query.text(QStringLiteral("ERTEBAT")), key).trimmed();
}

}  // namespace

LinkedField linkedField(data::HostDatabase& db) {
    return {linkOption(db, QStringLiteral("DBSNAME_M")), linkOption(db, QStringLiteral("TBLNAME_M")),
            linkOption(db, QStringLiteral("FLDNAME_M"))};
}

bool isCentreUsed(data::HostDatabase& db, const QString& code, const LinkedField& linked) {
    const QString value = data::quoted(code);
    const bool isLinked = !linked.database.isEmpty() && !linked.table.isEmpty() && !linked.field.isEmpty();
    return findsRow(db, " select * from person where tafsily2=" + value) ||
           findsRow(db, " select * from asnad where tafsily2=" + value) ||
           (isLinked && findsRow(db, " Select " + linked.field + " From " + linked.database + ".." +
                                         linked.table + " Where " + linked.field + u'=' + value));
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
