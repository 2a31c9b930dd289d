// What leaves a grid of 100,000 rows by 20 columns, against those who read the same rows bare; and what
// the fitting of its columns asks of the server.
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <stdexcept>

#include "Bench.h"
#include "Embedded.h"
#include "GridColumns.h"
#include "GridExport.h"
#include "Handle.h"
#include "Query.h"
#include "WideTable.h"

namespace bench {
namespace {

constexpr int kRounds = 7;

struct WideGrid {
    QString file = wideCompany();
    std::unique_ptr<data::Connection> connection = tsql::open(file, tsql::OpenMode::Existing);
    data::Dataset rows;
    widgets::DataGrid view;
    QTemporaryDir folder;
    data::HostContext context;

    WideGrid() {
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
};

// Every cell of a statement's rows as text, through SQLite's own interface.
void stepAsText(const tsql::Handle& handle, std::string_view sql) {
    const tsql::PreparedStatement statement = handle.prepare(sql);
    const int columns = sqlite3_column_count(statement.get());
    qint64 bytes = 0;
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        for (int column = 0; column < columns; ++column) {
            sqlite3_column_text(statement.get(), column);
            bytes += sqlite3_column_bytes(statement.get(), column);
        }
    if (bytes < kWideRows)
        throw std::runtime_error("the rows were not read");
}

void runShell(const QString& shell, const QString& file, const QString& output) {
    QProcess process;
    process.setStandardOutputFile(output);
    process.start(shell, {"-batch", file, ".mode html", "select * from Wide_Rows order by Code_field"});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        throw std::runtime_error("the sqlite3 shell failed");
}

}  // namespace

void exportText() {
    WideGrid grid;
    const tsql::Handle byHand(grid.file, false);
    const auto ours = [&] { return timed([&] { Export_Office(grid.context, grid.view, true, ".XLS"); }); };
    const auto stepped = [&](std::string_view order) {
        return timed([&] { stepAsText(byHand, std::string("SELECT * FROM Wide_Rows").append(order)); });
    };
    report("export-text", compare(kRounds, ours, [&] { return stepped(" ORDER BY Code_field"); }));
    const Comparison unordered = compare(kRounds, ours, [&] { return stepped(""); });
    detail("export-text", QStringLiteral("ratio %1 to stepping in no order").arg(unordered.ratio, 0, 'f', 2));
}

void exportHtml() {
    const QString shell = QStandardPaths::findExecutable("sqlite3");
    if (shell.isEmpty())
        return detail("export-html", "not measured: there is no sqlite3 shell here");
    WideGrid grid;
    const auto ours = [&] { return timed([&] { Export_Html(grid.context, grid.view, "Wide"); }); };
    const auto theirs = [&] {
        return timed([&] { runShell(shell, grid.file, grid.folder.filePath("shell.html")); });
    };
    report("export-html", compare(kRounds, ours, theirs));
    detail("export-html", QStringLiteral("%1 MB, the shell %2 MB")
                              .arg(QFile(grid.folder.filePath("html/Table2.html")).size() / 1e6, 0, 'f', 1)
                              .arg(QFile(grid.folder.filePath("shell.html")).size() / 1e6, 0, 'f', 1));
}

void fitColumns() {
    WideGrid grid;
    data::Query query(grid.connection.get());
    data::HostDatabase db{&query, grid.connection.get()};
    int statements = 0;
    grid.connection->setMonitor([&](const QString&) { ++statements; });
    const double time = timed([&] { Fit_Grid_Columns(db, grid.view, false, 0); });
    grid.connection->setMonitor({});
    std::printf("fit-columns statements a column %.2f\n", statements / 20.0);
    detail("fit-columns", QStringLiteral("%1 ms").arg(time, 0, 'f', 0));
}

}  // namespace bench
