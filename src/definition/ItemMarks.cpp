#include "ItemMarks.h"

#include "DatabaseHelpers.h"
#include "Query.h"

namespace definition {
namespace {

const QString kItemMark = QStringLiteral("CODMOZ_");

}  // namespace

QStringList itemNames(data::HostDatabase& db, const QString& month) {
    data::Query items(db.Connection);
    items.setSql(" select code_field,desk from paymozd where codemah=" + data::quoted(month) +
                 " order by code_field ");
    QStringList names;
    for (items.open(); !items.eof(); items.next())
        names.append(items.text(1).trimmed());
    return names;
}

QList<forms::PageColumn> itemMarks(const QStringList& items, const data::Dataset& rows) {
    QList<forms::PageColumn> marks;
    int item = 0;
    for (const QString& name : items) {
        const QString field = kItemMark.toLower() + QString::number(++item);
        // A mark whose column could not be added would be forgotten.
        if (!rows.active() || rows.columnIndex(field) >= 0)
            marks.append(
                forms::markColumn(field, name, forms::kDefaultWidth,
                                  " در صورتيکه " + name + " مبناي محاسبه{D} مي باشد علامت دار گردد"));
    }
    return marks;
}

void addItemMarks(data::HostDatabase& db, const QString& table, qsizetype items) {
    const QSet<QString> columns = Column_Names(db, table);
    // One transaction, so that the disk is waited for once.
    data::Transaction transaction(*db.Connection);
    for (qsizetype item = 1; item <= items; ++item) {
        const QString name = kItemMark + QString::number(item);
        if (!columns.contains(name.toLower()))
            Exec_Sql(db, "Alter Table " + table + " Add " + name + " varchar(1)");
    }
    transaction.commit();
}

}  // namespace definition
