#include "ItemMarks.h"

#include "DatabaseHelpers.h"

namespace definition {
namespace {

const QString kItemMark = QStringLiteral("CODMOZ_");

}  // namespace

void askItemNames(data::Questions& questions, const QString& month, QStringList& names) {
    questions.ask(
        " select code_field,desk from paymozd where codemah=" + data::quoted(month) + " order by code_field ",
        [&names](const data::ResultSet& found) {
            for (const QVariantList& row : found.rows)
                names.append(row[1].toString().trimmed());
        });
}

QStringList itemNames(data::HostDatabase& db, const QString& month) {
    data::Questions questions;
    QStringList names;
    askItemNames(questions, month, names);
    questions.send(*db.Connection);
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

MarkedTable openMarkedTable(data::HostDatabase& db, const QString& table, const QString& month) {
    MarkedTable marked;
    const QString columns = "Select * From " + table + " Where 1=0";
    data::Questions questions;
    askItemNames(questions, month, marked.items);
    questions.ask(columns, [&](const data::ResultSet& found) { marked.columns = found.columns; });
    questions.send(*db.Connection);
    QStringList missing;
    for (qsizetype item = 1; item <= marked.items.size(); ++item) {
        const QString name = kItemMark + QString::number(item);
        const auto is = [&](const data::ColumnInfo& column) {
            return column.name.compare(name, Qt::CaseInsensitive) == 0;
        };
        if (std::none_of(marked.columns.begin(), marked.columns.end(), is))
            missing.append("Alter Table " + table + " Add " + name + " varchar(1)");
    }
    if (missing.isEmpty())
        return marked;
    data::Transaction transaction(*db.Connection);
    Exec_Sql(db, missing.join(u'\n'));
    transaction.commit();
    marked.columns = db.Connection->execute(columns).columns;
    return marked;
}

}  // namespace definition
