// The first showing of every page on a large company, from the choice of its tab or combo item until it
// stands there; the floor is the statements that it sent, sent again. The ratio is that of all pages
// together: a page of few statements is all form and paint.
#include <QComboBox>
#include <QCoreApplication>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTemporaryDir>
#include <stdexcept>

#include "Bench.h"
#include "Embedded.h"
#include "HostCompany.h"
#include "ModuleWindow.h"
#include "Odbc.h"
#include "WireServer.h"

namespace bench {
namespace {

constexpr int kEmployees = 100'000;
constexpr int kRounds = 5;

struct Place {
    const char *sheet, *combo;  // no combo on a tab with one page
    int item;
};

QList<Place> places() {
    QList<Place> all;
    for (const char* sheet :
         {"ts_NoPay", "ts_Vam", "ts_Bank", "ts_Bimeh", "ts_Malyat", "ts_Edari", "ts_MaliyatInfo"})
        all.append({sheet, "", 0});
    for (int item = 0; item < 10; ++item)
        all.append({"ts_Mul", "cmbZarayeb", item});
    for (int item = 0; item < 2; ++item)
        all.append({"ts_Marakez", "cmbMarakez", item});
    return all;
}

void choose(widgets::Form& window, const Place& place) {
    if (auto* combo = window.component<QComboBox>(QString::fromLatin1(place.combo)))
        combo->setCurrentIndex(place.item);
    window.component<QTabWidget>("pc_Payment")
        ->setCurrentWidget(window.component<QWidget>(QString::fromLatin1(place.sheet)));
    QCoreApplication::processEvents();
}

// The page's own tables go with it; those made by sending its statements again do not.
void dropWorkTables(ModuleWindow& window, const QStringList& sent) {
    static const QRegularExpression made("\\binto (W_\\w+)", QRegularExpression::CaseInsensitiveOption);
    for (const QString& sql : sent)
        if (const auto match = made.match(sql); match.hasMatch())
            window.execute("drop table " + match.captured(1));
}

}  // namespace

void openPages() {
    const QString file =
        keptFile(QStringLiteral("%1-demo.company").arg(kEmployees),
                 [](const QString& making) { host::createDemoCompany(making, {kEmployees}); });
    ModuleWindow window(file);
    double opening = 0, statements = 0;
    qsizetype most = 0;
    for (const Place& place : places()) {
        // An older company's tables get what they lack once.
        window.reopen();
        choose(window.form(), place);
        QStringList sent;
        const auto opened = [&] {
            window.reopen();
            QCoreApplication::processEvents();
            sent.clear();
            window.connection().setMonitor([&](const QString& sql) { sent.append(sql); });
            const double time = timed([&] { choose(window.form(), place); });
            window.connection().setMonitor({});
            return time;
        };
        const auto sentAgain = [&] {
            window.reopen();
            const double time = timed([&] {
                data::Transaction transaction(window.connection());
                for (const QString& sql : sent)
                    window.execute(sql);
                transaction.commit();
            });
            dropWorkTables(window, sent);
            return time;
        };
        const Comparison comparison = compare(kRounds, opened, sentAgain);
        if (sent.isEmpty())
            throw std::runtime_error("a page has sent nothing");
        detail(QStringLiteral("open-pages"), QStringLiteral("%1 %2: %3 ms, its %4 statements %5 ms")
                                                 .arg(place.sheet)
                                                 .arg(place.item)
                                                 .arg(comparison.measured, 0, 'f', 1)
                                                 .arg(sent.size())
                                                 .arg(comparison.floor, 0, 'f', 1));
        most = qMax(most, sent.size());
        opening += comparison.measured;
        statements += comparison.floor;
    }
    report(QStringLiteral("open-pages"), opening / statements);
    // On a network each is a round trip.
    report(QStringLiteral("open-pages, statements"), double(most), 6);
}

// On a network each text is waited for: all pages' first and next shows, against the waits alone.
void wire() {
    constexpr int kLatency = 2;  // milliseconds
    const QString kept = keptFile(QStringLiteral("demo.company"),
                                  [](const QString& making) { host::createDemoCompany(making); });
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("demo.company"));
    QFile::copy(kept, file);
    ::wire::WireServer server(
        [file] { return tsql::open(file, tsql::OpenMode::Existing, tsql::RowPlaces::Hidden); });
    ModuleWindow window(odbc::open(server.connectionString()));
    // An older company's tables get what they lack, and lists their rows, once.
    for (const Place& place : places()) {
        choose(window.form(), {"ts_Payment", "", 0});
        choose(window.form(), place);
    }
    window.reopen();
    server.harshness().latencyMilliseconds = kLatency;
    for (const char* show : {"first", "next"}) {
        double taken = 0, waits = 0;
        for (const Place& place : places()) {
            choose(window.form(), {"ts_Payment", "", 0});
            const int before = server.harshness().replies;
            taken += timed([&] { choose(window.form(), place); });
            const int replies = server.harshness().replies - before;
            waits += replies * kLatency;
            detail(QStringLiteral("wire"), QStringLiteral("%1 %2, %3 show: %4 waits")
                                               .arg(place.sheet)
                                               .arg(place.item)
                                               .arg(QLatin1String(show))
                                               .arg(replies));
        }
        // The next ones wait so little that painting is the larger part of them.
        if (show == QLatin1String("first"))
            report(QStringLiteral("wire, first shows"), taken / waits, 2);
    }
    server.harshness().latencyMilliseconds = 0;
}

}  // namespace bench
