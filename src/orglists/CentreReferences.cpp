#include "CentreReferences.h"

#include "DatabaseHelpers.h"
#include "ModuleVariables.h"
#include "PeopleCodes.h"
#include "TextHelpers.h"

namespace orglists {
namespace {

QString linkOption(const QString& key) {
    data::Query query(_MyDatabase->Connection);
    query.setSql(" Select ERTEBAT From Options Where SCode =" + data::quoted(key));
    query.open();
    return Get_Param(query.text(QStringLiteral("ERTEBAT")), key).trimmed();
}

}  // namespace

LinkedField linkedField() {
    return {linkOption(QStringLiteral("DBSNAME_M")), linkOption(QStringLiteral("TBLNAME_M")),
            linkOption(QStringLiteral("FLDNAME_M"))};
}

bool isCentreUsed(const QString& code, const LinkedField& linked) {
    const QString value = data::quoted(code);
    const bool isLinked = !linked.database.isEmpty() && !linked.table.isEmpty() && !linked.field.isEmpty();
    return findsRow(" select * from person where tafsily2=" + value) ||
           findsRow(" select * from asnad where tafsily2=" + value) ||
           (isLinked && findsRow(" Select " + linked.field + " From " + linked.database + ".." +
                                 linked.table + " Where " + linked.field + u'=' + value));
}

void keepCentreRights(const QString& before, const QString& now) {
    // Rights to a centre that is long gone are none to the one that gets its code.
    if (before.trimmed().compare(now.trimmed(), Qt::CaseInsensitive) != 0)
        Exec_Sql(*_MyDatabase,
                 "Delete From UserPrivilege Where TableName='TAFSILY2' And FieldCode=" + data::quoted(now));
    if (before.trimmed().isEmpty())
        Exec_Sql(*_MyDatabase, "Insert Into UserPrivilege(UserId, TableName, FieldCode) Select " +
                                   data::quoted(QString::number(_Global->UserId)) + ", 'TAFSILY2', " +
                                   data::quoted(now));
    else if (before != now)
        Exec_Sql(*_MyDatabase, "Update UserPrivilege Set FieldCode=" + data::quoted(now) +
                                   " Where TableName='TAFSILY2' And FieldCode=" + data::quoted(before));
}

}  // namespace orglists
