#include "UserRights.h"

#include "DatabaseHelpers.h"
#include "ModuleVariables.h"
#include "TextHelpers.h"

void Load_User_Rights(data::HostDatabase& db, data::HostContext& context) {
    data::Query query(db.Connection);
    query.setSql("Select KAVESTA From UserSdc Where UserId = " +
                 data::quoted(QString::number(context.UserId)));
    query.open();
    const QString rights = query.text(QStringLiteral("KAVESTA"));
    context.Copy_Right = Get_Param(rights, QStringLiteral("COPY"));
    context.Print_Right = Get_Param(rights, QStringLiteral("PRINT"));
    context.Report_Right = Get_Param(rights, QStringLiteral("REPORT"));
}

QString Get_Rights_Tree(data::HostDatabase& db, const QString& prefix, const QString& userColumn) {
    db.Query->setSql("Select StrId, " + data::bracketed(userColumn) +
                     " As UserId From UserSdcDetail Where StrId Like '" + prefix +
                     "%' Order By StrId, Parent");
    QString rights;
    for (db.Query->open(); !db.Query->eof(); db.Query->next())
        rights += db.Query->text(0) + u'(' + db.Query->text(1) + QLatin1String("),");
    return rights;
}

QString Privilege_Subquery(const data::HostContext& context, const QString& table) {
    return "(Select FieldCode From UserPrivilege Where UserId=" +
           data::quoted(QString::number(context.UserId)) +
           " And Upper(TableName)=" + data::quoted(table.toUpper()) + ") ";
}

QString Prepare_Group_Pick(const SuiteHost& host, const QString& codeText, const QString& title) {
    const QString key = QStringLiteral("Tafsily2GrohCod");
    const QString workTable = "##" + host.context->Temp_Prefix + Time_Stamp();
    TTempGridForm& form = *_TempGridForm;
    form.Mode = 2;
    form.First = {QStringLiteral("كد"), key, 40};
    form.Second = {"نام گروه " + title, QStringLiteral("Tafsily2GrohNam"), 420};
    form.FormCaption = "انتخاب گروه " + title;
    form.KeyField = key;
    form.CurrentCode = codeText;
    form.WorkTable = workTable;
    Exec_Sql(*host.database, "Select Tafsily2GrohCod, Tafsily2GrohNam Into " + workTable +
                                 " From GrohTafsily2 Where Tafsily2GrohCod In " +
                                 Privilege_Subquery(*host.context, QStringLiteral("GROHTAFSILY2")) + " ");
    return "Select * From " + workTable + " Order By Tafsily2GrohCod";
}
