// What leaves a grid of 100,000 rows by 20 columns, against those who read the same rows bare; and what
// the fitting of its columns asks of the server.
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <stdexcept>

#include "Bench.h"
#include "GridColumns.h"
#include "GridExport.h"
#include "Handle.h"
#include "Query.h"
#include "WideTable.h"

namespace bench {
namespace {

constexpr int kRounds = 7;

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

// The same values by hand: one pass that looks for the longest text of each column and the total of each
// number.
std::string onePass(const data::Dataset& rows) {
    QStringList asked;
    for (const data::ColumnInfo& column : rows.columns()) {
        asked.append("max(length(trim(" + column.name + ")))");
        if (column.type != data::ColumnType::Text)
            asked.append("total(" + column.name + ')');
    }
    return "SELECT " + asked.join(u',').toStdString() + " FROM Wide_Rows";
}

}  // namespace

void exportText() {
    WideGrid grid;
    const tsql::Handle byHand(grid.file, false);
    const auto ours = [&] { return timed([&] { Export_Office(grid.context, grid.view, true, ".XLS"); }); };
    const auto stepped = [&](std::string_view order) {
        return timed([&] { stepAsText(byHand, std::string("SELECT * FROM Wide_Rows").append(order)); });
    };
    report("export-text", compare(kRounds, ours, [&] { return stepped(" ORDER BY Code_field"); }), 1.5);
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
    const tsql::Handle byHand(grid.file, false);
    const std::string pass = onePass(grid.rows);
    data::Query query(grid.connection.get());
    data::HostDatabase db{&query, grid.connection.get()};
    int statements = 0;
    const auto fitted = [&] {
        statements = 0;
        return timed([&] { Fit_Grid_Columns(db, grid.view, false, 0); });
    };
    grid.connection->setMonitor([&](const QString&) { ++statements; });
    report("fit-columns", compare(kRounds, fitted, [&] { return timed([&] { byHand.run(pass); }); }), 1.5);
    report("fit-columns, statements", statements, 3);
    grid.connection->setMonitor({});
}

}  // namespace bench
