// What pages offer besides: a step undone, a confirmation looked at, a block pasted, the company copied
// behind it.
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTabWidget>
#include <QThread>
#include <QTimer>
#include <stdexcept>

#include "Bench.h"
#include "DataGrid.h"
#include "Embedded.h"
#include "FileCopy.h"
#include "HostCompany.h"
#include "ModuleWindow.h"

namespace bench {
namespace {

constexpr int kEmployees = 100'000;
constexpr int kRounds = 7;

QString largeCompany() {
    return keptFile(QStringLiteral("%1-demo.company").arg(kEmployees),
                    [](const QString& making) { host::createDemoCompany(making, {kEmployees}); });
}

void press(widgets::DataGrid& grid, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier);
    QCoreApplication::sendEvent(&grid, &event);
}

widgets::DataGrid& salaryGrid(ModuleWindow& window) {
    auto* grid = window.form().component<widgets::DataGrid>("dbgMozd");
    if (!grid)
        throw std::runtime_error("the salary page does not show");
    return *grid;
}

void rename(widgets::DataGrid& grid, const QString& name) {
    grid.dataset()->edit();
    grid.dataset()->setValue(QStringLiteral("Desk"), name);
    grid.dataset()->post();
}

void undo(ModuleWindow& window) {
    widgets::DataGrid& grid = salaryGrid(window);
    QList<double> times;
    for (int round = 0; round < kRounds; ++round) {
        const QString before = grid.dataset()->text(QStringLiteral("Desk"));
        rename(grid, QStringLiteral("نام %1").arg(round));
        times.append(timed([&] { press(grid, Qt::Key_Z); }));
        if (grid.dataset()->text(QStringLiteral("Desk")) != before)
            throw std::runtime_error("the step was not undone");
    }
    report(QStringLiteral("undo, ms"), median(times), 30);
}

void preview(ModuleWindow& window) {
    widgets::DataGrid& grid = salaryGrid(window);
    rename(grid, QStringLiteral("نام ديگر"));
    QStringList sent;
    const auto looked = [&] {
        sent.clear();
        window.connection().setMonitor([&](const QString& sql) { sent.append(sql); });
        bool shown = false;
        QTimer::singleShot(0, &grid, [&] {
            shown = widgets::Form::front()->className() == QLatin1String("TConfirmPreviewForm");
            widgets::Form::front()->setModalResult(widgets::mrCancel);
        });
        const double time = timed([&] { press(grid, Qt::Key_K); });
        window.connection().setMonitor({});
        if (!shown)
            throw std::runtime_error("there is no preview");
        return time;
    };
    const auto sentAgain = [&] {
        return timed([&] {
            for (const QString& sql : sent)
                window.execute(sql);
        });
    };
    report(QStringLiteral("preview"), compare(kRounds, looked, sentAgain), 2);
    press(grid, Qt::Key_Z);
}

void paste(ModuleWindow& window) {
    constexpr int kRows = 2000;
    auto* tabs = window.form().component<QTabWidget>("pc_Payment");
    tabs->setCurrentWidget(window.form().component<QWidget>("ts_Marakez"));
    auto* combo = window.form().component<QComboBox>("cmbMarakez");
    combo->setCurrentIndex(1);
    Q_EMIT combo->activated(1);
    widgets::DataGrid* grid = nullptr;
    for (auto* found : window.form().findChildren<widgets::DataGrid*>())
        if (found->dataset() && found->dataset()->tableName() == QLatin1String("Tafsily2"))
            grid = found;
    if (!grid)
        throw std::runtime_error("the cost centres do not show");
    QStringList lines;
    for (int row = 0; row < kRows; ++row)
        lines.append(QStringLiteral("02%1\tمركز شماره %2\t2034500011\tكارگاه\tكارفرما\tتهران\tتوليد\tشعبه")
                         .arg(row + 10'000)
                         .arg(row));
    QGuiApplication::clipboard()->setText(lines.join(u'\n'));
    const QString those = QStringLiteral(" from Tafsily2 where Tafsily2>='0210000' and Tafsily2<'0212000'");
    QStringList inserts;
    const auto pasted = [&] {
        window.execute("delete" + those);
        grid->dataset()->refresh();
        grid->dataset()->last();
        grid->selectColumn(0);
        grid->dataset()->append();
        inserts.clear();
        window.connection().setMonitor([&](const QString& sql) {
            if (sql.startsWith(QLatin1String("INSERT INTO [Tafsily2]")))
                inserts.append(sql.section(QLatin1String("\n"), 0, 0));
        });
        const double time = timed([&] { press(*grid, Qt::Key_V); });
        window.connection().setMonitor({});
        if (window.execute("select count(*)" + those).rows[0][0].toInt() != kRows)
            throw std::runtime_error("the block was not pasted");
        return time;
    };
    const auto inserted = [&] {
        window.execute("delete" + those);
        return timed([&] {
            data::Transaction transaction(window.connection());
            for (const QString& sql : inserts)
                window.execute(sql);
            transaction.commit();
        });
    };
    report(QStringLiteral("paste, 2000 x 8"), compare(5, pasted, inserted), 1.5);
    window.execute("delete" + those);
}

void backup() {
    const QString file = largeCompany();
    const QString copy = file + QStringLiteral(".copy");
    QFile::remove(copy);
    double longest = 0;
    QElapsedTimer since;
    QTimer frames;
    QObject::connect(&frames, &QTimer::timeout, [&] {
        longest = qMax(longest, since.nsecsElapsed() / 1e6);
        since.restart();
    });
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { tsql::copyCompany(file, copy, [] { return true; }); }));
    since.start();
    frames.start(5);
    thread->start(QThread::LowPriority);
    waitUntil([&] { return thread->isFinished(); });
    detail(QStringLiteral("backup"), QStringLiteral("%1 MB").arg(QFileInfo(copy).size() >> 20));
    report(QStringLiteral("backup, longest frame, ms"), longest, 50);
    QFile::remove(copy);
}

}  // namespace

void features() {
    {
        ModuleWindow window(largeCompany());
        undo(window);
        preview(window);
        paste(window);
    }
    backup();
}

}  // namespace bench
