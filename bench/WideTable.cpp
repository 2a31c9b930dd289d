#include "WideTable.h"

#include <stdexcept>

#include "Bench.h"
#include "Embedded.h"

namespace bench {
namespace {

void makeTable(const QString& file) {
    constexpr int kRowsPerInsert = 500;
    const auto connection = tsql::open(file, tsql::OpenMode::Create);
    QString columns;
    for (int column = 1; column <= kWideAmounts; ++column)
        columns += QStringLiteral(", amount_%1 int").arg(column);
    data::Transaction transaction(*connection);
    connection->execute("create table " + kWideTable +
                        "(Code_field int, Desk varchar(100), City varchar(50), Mark varchar(1), Rate float" +
                        columns + ")");
    for (int first = 1; first <= kWideRows; first += kRowsPerInsert) {
        QStringList values;
        for (int row = first; row < first + kRowsPerInsert; ++row) {
            QString value = QStringLiteral("(%1,'حقوق و مزاياي %1','شهر %2','%3',%4")
                                .arg(row)
                                .arg(row % 50)
                                .arg(row % 2 ? "ض" : "")
                                .arg(row / 8.0);
            for (int column = 1; column <= kWideAmounts; ++column)
                value += u',' + QString::number(row % 1000 * column * 37);
            values.append(value + u')');
        }
        connection->execute("insert into " + kWideTable + " values " + values.join(u','));
    }
    transaction.commit();
}

}  // namespace

QString wideCompany() {
    return keptFile(QStringLiteral("wide.company"), makeTable);
}

WideGrid::WideGrid() : connection(tsql::open(file, tsql::OpenMode::Existing)) {
    context.Install_Dir = folder.path();
    context.Current_Date = "1404/07/15";
    rows.setObjectName("Table2");
    rows.setConnection(connection.get());
    rows.setTableName(kWideTable);
    rows.setIndexFieldNames("Code_field");
    rows.open();
    QList<widgets::GridColumn> columns;
    for (const data::ColumnInfo& column : rows.columns())
        columns.append({.field = column.name, .title = column.name});
    view.setGridColumns(columns);
    view.setDataset(&rows);
    if (rows.recordCount() != kWideRows || columns.size() != 20)
        throw std::runtime_error("the wide table is not what it should be");
}

}  // namespace bench
