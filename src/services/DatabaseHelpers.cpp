#include "DatabaseHelpers.h"

namespace {

bool hasRows(data::HostDatabase& db, const QString& sql) {
    db.Query->setSql(sql);
    db.Query->open();
    return !db.Query->isEmpty();
}

// The columns beyond the twentieth that a table carries for each salary item.
struct PayItemColumns {
    QLatin1String table;
    QLatin1String prefix;
    QLatin1String type;
};

constexpr PayItemColumns kPayItemColumns[] = {
    {QLatin1String("EZAFEHKAR"), QLatin1String("CODMOZ_"), QLatin1String(" Varchar(1) ")},
    {QLatin1String("PAYROLL"), QLatin1String("CODE_"), QLatin1String(" int not Null default 0 ")},
};
constexpr int kFirstAddedColumn = 21;

}  // namespace

bool Exec_Sql(data::HostDatabase& db, const QString& sql) {
    if (sql.isEmpty())
        return true;
    if (!db.Query->connection())
        return false;
    db.Query->setSql(sql);
    db.Query->exec();
    return true;
}

bool Finds_Row(data::HostDatabase& db, const QString& statement) {
    bool found = false;
    db.Connection->stream(
        statement, [](const QList<data::ColumnInfo>&) {},
        [&](const data::RowView&) {
            found = true;
            return false;
        });
    return found;
}

bool Is_Object_Exist(data::HostDatabase& db, const QString& name) {
    return hasRows(db,
                   "Select [Name] From Sysobjects Where (Upper(XType) = 'U' Or Upper(XType) = 'V' Or "
                   "Upper(XType) = 'P' Or Upper(XType) = 'TR') And Upper([Name]) = " +
                       data::quoted(name.trimmed().toUpper()));
}

bool Is_Column_Exist(data::HostDatabase& db, const QString& table, const QString& column) {
    const QString prefix = table.startsWith(QLatin1String("##")) ? QStringLiteral("TempDB..") : QString();
    return hasRows(db,
                   "Select O.[Name] As TableName,C.[Name] As GrohName  From " + prefix +
                       "syscolumns As C inner join " + prefix +
                       "sysobjects As O  On(C.[id]=O.[id] And O.XType='U' And O.Type='U') where O.[Name]=" +
                       data::quoted(table.trimmed()) + " And C.[Name]=" + data::quoted(column.trimmed()));
}

QSet<QString> Column_Names(data::HostDatabase& db, const QString& table) {
    data::Query query(db.Connection);
    query.setSql(
        "Select C.[Name] From syscolumns As C inner join sysobjects As O On(C.[id]=O.[id]) where O.[Name]=" +
        data::quoted(table));
    QSet<QString> columns;
    for (query.open(); !query.eof(); query.next())
        columns.insert(query.text(0).toLower());
    return columns;
}

bool Is_Name_Repeated(data::HostDatabase& db, const QString& table, const QString& column,
                      const QString& value) {
    return hasRows(db, "sp_Is_Name_Repeated " + data::quoted(table) + ", " + data::quoted(column) + ", " +
                           data::quoted(value));
}

bool Is_Depended(data::HostDatabase& db, const QString& procedure, const QString& code) {
    return hasRows(db, procedure + " " + data::quoted(code)) && db.Query->integer(0) > 0;
}

QString Get_Top_Value(data::HostDatabase& db, const QString& keyColumn, const QString& keyValue,
                      const QString& resultColumn, const QString& table) {
    hasRows(db, "Select Top 1 " + resultColumn + " From " + table + " Where " + keyColumn + " = " +
                    data::quoted(keyValue));
    return db.Query->text(0);
}

QStringList payItemColumns(const QString& table, const QSet<QString>& known, qint64 items) {
    QStringList statements;
    for (const PayItemColumns& columns : kPayItemColumns)
        for (qint64 i = kFirstAddedColumn; table == columns.table && i <= items; ++i) {
            const QString column = columns.prefix + QString::number(i);
            if (!known.contains(column.toLower()))
                statements.append(
                    " if not EXISTS (select * from sysobjects a inner join syscolumns b on a.id=b.id where "
                    "Upper(a.name)='" +
                    table + "' and Upper(b.name)='" + column + "')" + " Alter Table " + table + " Add " +
                    column + columns.type);
        }
    return statements;
}

void Add_PayItem_Columns(data::HostDatabase& db, const QString& table, data::Query& query,
                         const QString& codeMah) {
    query.setSql(" Select Count(*) as mRec From Paymozd Where CodeMah=" + data::quoted(codeMah));
    query.open();
    const qint64 items = query.integer(QStringLiteral("mRec"));
    Exec_Sql(db, payItemColumns(table, Column_Names(db, table), items).join(u'\n'));
}
