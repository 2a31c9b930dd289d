// korvanta-bench [NAME…]: prints the ratio of each benchmark to its floor, as a table.
#include <QApplication>
#include <cstdio>

#include "Appearance.h"
#include "Bench.h"
#include "Opener.h"

namespace {

struct Benchmark {
    const char* name;
    void (*run)();
};

constexpr Benchmark kBenchmarks[] = {
    {"confirm-10000", [] { bench::confirmation(10'000); }},
    {"confirm-100000", [] { bench::confirmation(100'000); }},
    {"export-dbf", bench::exportDbf},
    {"cold-start", bench::coldStart},
    {"open-pages", bench::openPages},
    {"wire", bench::wire},
    {"features", bench::features},
    {"translate", bench::translation},
    {"translate-depth", bench::translationDepth},
    {"grid-100000", bench::grid},
    {"export-text", bench::exportText},
    {"export-html", bench::exportHtml},
    {"fit-columns", bench::fitColumns},
    {"export-memory", bench::exportMemory},
};

// Which of them run; none when a name is unknown.
QList<Benchmark> chosen(const QStringList& names) {
    QList<Benchmark> benchmarks;
    for (const Benchmark& benchmark : kBenchmarks)
        if (names.isEmpty() || names.contains(QLatin1String(benchmark.name)))
            benchmarks.append(benchmark);
    return benchmarks.size() < names.size() ? QList<Benchmark>() : benchmarks;
}

int runAll(const QStringList& names) {
    const QList<Benchmark> benchmarks = chosen(names);
    int failures = benchmarks.isEmpty() ? 1 : 0;
    if (failures)
        for (const Benchmark& benchmark : kBenchmarks)
            std::fprintf(stderr, "there is %s\n", benchmark.name);
    if (!failures)
        bench::tableHead();
    for (const Benchmark& benchmark : benchmarks) {
        try {
            benchmark.run();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s failed: %s\n", benchmark.name, error.what());
            ++failures;
        }
    }
    return failures ? 1 : 0;
}

}  // namespace

int main(int count, char** values) {
    // Times of a display are no concern here, and the same program runs where there is none.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, values);
    host::applyAppearance(application);
    const bench::Opener opener;
    QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.size() == 2 && arguments[0] == QLatin1String("--grid-memory")) {
        bench::gridMemory(arguments[1].toInt());
        return 0;
    }
    if (arguments.size() == 2 && arguments[0] == QLatin1String("--export-memory"))
        return bench::exportOnce(arguments[1]) ? 0 : 1;
    return runAll(arguments);
}
