// A data grid over 100,000 rows of a company's table; the floor is a table view whose model computes
// its cells.
#include <QAbstractTableModel>
#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QHeaderView>
#include <QProcess>
#include <QScrollBar>
#include <cstdio>
#include <stdexcept>

#include "Bench.h"
#include "DataGrid.h"
#include "Embedded.h"

namespace bench {
namespace {

constexpr int kManyRows = 100'000, kFewRows = 100;
constexpr int kNumberColumns = 10;
constexpr int kColumnWidth = 80;
constexpr int kRounds = 15;
constexpr QSize kSize(1000, 640);
const QString kTable = QStringLiteral("Grid_Rows");

void makeTable(const QString& file, int rows) {
    constexpr int kRowsPerInsert = 500;
    const auto connection = tsql::open(file, tsql::OpenMode::Create);
    QString columns;
    for (int column = 1; column <= kNumberColumns; ++column)
        columns += QStringLiteral(", amount_%1 int").arg(column);
    data::Transaction transaction(*connection);
    connection->execute("create table " + kTable + "(Code_field int, Desk varchar(100)" + columns + ")");
    for (int first = 1; first <= rows; first += kRowsPerInsert) {
        QStringList values;
        for (int row = first; row < qMin(first + kRowsPerInsert, rows + 1); ++row) {
            QString value = QStringLiteral("(%1,'حقوق و مزاياي %1'").arg(row);
            for (int column = 1; column <= kNumberColumns; ++column)
                value += u',' + QString::number(row * column);
            values.append(value + u')');
        }
        connection->execute("insert into " + kTable + " values " + values.join(u','));
    }
    transaction.commit();
}

QString tableFile(int rows) {
    return keptFile(QStringLiteral("grid-%1.company").arg(rows),
                    [rows](const QString& making) { makeTable(making, rows); });
}

// --- the floor ---------------------------------------------------------------------------------------

class ComputedModel : public QAbstractTableModel {
public:
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : kManyRows; }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : kNumberColumns + 2;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const int row = index.row() + 1;
        if (role == Qt::TextAlignmentRole)
            return index.column() == 1 ? int(Qt::AlignLeading | Qt::AlignVCenter)
                                       : int(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
        if (role != Qt::DisplayRole)
            return {};
        return index.column() == 1 ? "حقوق و مزاياي " + QString::number(row)
                                   : QString::number(row * qMax(1, index.column() - 1));
    }
};

struct ComputedTable {
    ComputedModel model;
    QTableView view;
    ComputedTable() {
        view.setModel(&model);
        view.horizontalHeader()->setDefaultSectionSize(kColumnWidth);
    }
};

// --- what is measured --------------------------------------------------------------------------------

struct DatabaseTable {
    data::Dataset rows;
    widgets::DataGrid view;
    explicit DatabaseTable(data::Connection& connection) {
        QList<widgets::GridColumn> columns = {
            {.field = "Code_field", .title = "كد", .width = kColumnWidth, .kind = widgets::ColumnKind::Code},
            {.field = "Desk", .title = "شرح", .width = kColumnWidth, .kind = widgets::ColumnKind::Name}};
        for (int column = 1; column <= kNumberColumns; ++column)
            columns.append({.field = QStringLiteral("amount_%1").arg(column),
                            .title = QString::number(column),
                            .width = kColumnWidth,
                            .kind = widgets::ColumnKind::Number});
        rows.setConnection(&connection);
        rows.setTableName(kTable);
        rows.setIndexFieldNames("Code_field");
        view.setGridColumns(columns);
        view.setDataset(&rows);
    }
};

// Counts the paints of a view.
class Paints : public QObject {
public:
    explicit Paints(QTableView& view) { view.viewport()->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

void paintFirst(QTableView& view) {
    Paints paints(view);
    view.resize(kSize);
    view.show();
    waitUntil([&] { return paints.count > 0; });
}

// Milliseconds of a page of scrolling: the median of those over the whole table.
double scrollPage(QTableView& view) {
    constexpr int kSteps = 100;
    Paints paints(view);
    QScrollBar& bar = *view.verticalScrollBar();
    QList<double> times;
    for (int step = 0; step < kSteps; ++step) {
        // Between the measured pages a leap, so that each page is one that was never in sight.
        bar.setValue(bar.maximum() / kSteps * step);
        QCoreApplication::processEvents();
        const int before = paints.count;
        times.append(timed([&] {
            bar.setValue(bar.value() + bar.pageStep());
            waitUntil([&] { return paints.count > before; });
        }));
    }
    return median(times);
}

qint64 ownMemory() {
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the system does not tell the memory of a process");
    const QList<QByteArray> lines = file.readAll().split('\n');
    qint64 kilobytes = 0;
    for (const QByteArray& line : lines)
        if (line.startsWith("Private_Dirty:") || line.startsWith("Private_Clean:"))
            kilobytes += line.simplified().split(' ').at(1).toLongLong();
    return kilobytes * 1024;
}

double memoryOfProcess(int rows) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {"--grid-memory", QString::number(rows)});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        throw std::runtime_error("the grid's memory could not be measured");
    return process.readAllStandardOutput().toDouble();
}

}  // namespace

void grid() {
    const auto connection = tsql::open(tableFile(kManyRows), tsql::OpenMode::Existing);
    double opening = 0;
    QList<double> openings;
    const auto computed = [] {
        return timed([] {
            ComputedTable table;
            paintFirst(table.view);
        });
    };
    const auto database = [&] {
        return timed([&] {
            DatabaseTable table(*connection);
            opening = timed([&] { table.rows.open(); });
            openings.append(opening);
            paintFirst(table.view);
        });
    };
    const Comparison whole = compare(kRounds, database, computed);
    const Comparison paint = compare(
        kRounds, [&] { return database() - opening; }, computed);
    report(QStringLiteral("grid-100000"), paint, 1.5);
    report(QStringLiteral("grid-100000-with-open"), whole);
    detail(QStringLiteral("grid-open"), QStringLiteral("%1 ms").arg(median(openings), 0, 'f', 2));

    DatabaseTable table(*connection);
    table.rows.open();
    paintFirst(table.view);
    report("grid-scroll, ms", scrollPage(table.view), 5);
    ComputedTable floor;
    paintFirst(floor.view);
    detail("grid-scroll", QStringLiteral("floor %1 ms").arg(scrollPage(floor.view), 0, 'f', 2));
    tableFile(kFewRows);
    report("grid-memory, MB", (memoryOfProcess(kManyRows) - memoryOfProcess(kFewRows)) / 1e6, 15);
}

void gridMemory(int rows) {
    const auto connection = tsql::open(tableFile(rows), tsql::OpenMode::Existing);
    DatabaseTable table(*connection);
    table.rows.open();
    paintFirst(table.view);
    if (rows > kFewRows)
        scrollPage(table.view);
    std::printf("%lld\n", static_cast<long long>(ownMemory()));
}

}  // namespace bench
