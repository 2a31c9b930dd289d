#include "Session.h"

#include "Errors.h"

namespace odbc {
namespace {

constexpr int kCodePage = 1256;

struct Right {
    const char* securable;  // an expression; the database where NULL
    const char* kind;
    const char* permission;
};
constexpr Right kRights[] = {
    {"Null", "DATABASE", "CREATE TABLE"},   {"Schema_Name()", "SCHEMA", "SELECT"},
    {"Schema_Name()", "SCHEMA", "INSERT"},  {"Schema_Name()", "SCHEMA", "UPDATE"},
    {"Schema_Name()", "SCHEMA", "DELETE"},  {"Schema_Name()", "SCHEMA", "ALTER"},
    {"Schema_Name()", "SCHEMA", "EXECUTE"},
};

// The answers' columns.
enum Answer { kDatabase, kDatabaseCodePage, kSchema, kFirstRight };

QString question() {
    QString sql = QStringLiteral(
        "Select Db_Name(), Convert(int, CollationProperty(Convert(varchar(128), "
        "DatabasePropertyEx(Db_Name(), 'Collation')), 'CodePage')), Schema_Name()");
    for (const Right& right : kRights)
        sql += QStringLiteral(", Has_Perms_By_Name(%1, '%2', '%3')")
                   .arg(QLatin1String(right.securable), QLatin1String(right.kind),
                        QLatin1String(right.permission));
    return sql;
}

}  // namespace

void prepareSession(data::Connection& connection, const Waits& waits) {
    // With XACT_ABORT an error has one meaning on every engine: the transaction is over.
    connection.execute(
        QStringLiteral("Set NoCount Off Set Xact_Abort On Set Ansi_Nulls On Set Ansi_Padding On "
                       "Set Ansi_Warnings On Set ArithAbort On Set Quoted_Identifier On "
                       "Set Concat_Null_Yields_Null On Set Lock_Timeout %1")
            .arg(waits.lockMilliseconds));
    const QVariantList found = connection.execute(question()).rows.value(0);
    const QString database = found.value(kDatabase).toString();
    if (const int codePage = found.value(kDatabaseCodePage).toInt(); codePage != kCodePage)
        throw data::Refusal(
            QStringLiteral(
                "پايگاه داده «%1» متن ها را با صفحه كد %2 نگه مي دارد و حروف فارسي در آن «?» مي شوند. "
                "پايگاهي با ترتيب Arabic_CI_AS (صفحه كد %3) بسازيد.")
                .arg(data::pathInText(database), QString::number(codePage), QString::number(kCodePage)));
    if (const QString schema = found.value(kSchema).toString();
        schema.compare(QLatin1String("dbo"), Qt::CaseInsensitive) != 0)
        throw data::Refusal(
            QStringLiteral("شماي پيش فرض كاربر در پايگاه داده «%1»، «%2» است. آن را dbo كنيد.")
                .arg(data::pathInText(database), data::pathInText(schema)));
    QStringList missing;
    for (int right = 0; right < static_cast<int>(std::size(kRights)); ++right)
        if (found.value(kFirstRight + right).toInt() != 1)
            missing.append(QLatin1String(kRights[right].permission));
    if (!missing.isEmpty())
        throw data::Refusal(
            QStringLiteral("كاربر در پايگاه داده «%1» اين مجوزها را ندارد: %2")
                .arg(data::pathInText(database), data::pathInText(missing.join(QStringLiteral(", ")))));
}

}  // namespace odbc
