// What an export takes of memory at most, against what the process with the grid's window had before it. Each
// runs in a process of its own.
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <cstdio>
#include <stdexcept>

#include "Bench.h"
#include "DbfExport.h"
#include "GridExport.h"
#include "ReportOutput.h"
#include "WideTable.h"

namespace bench {
namespace {

struct Export {
    const char* name;
    void (*run)(WideGrid& grid);
};

void exportPdf(WideGrid& grid) {
    const TDLLPrnParam parameters{.Grid = &grid.view, .Title1 = QStringLiteral("Wide")};
    const report::GridReport made =
        report::makeReport(parameters, report::ReportTable::read(grid.view, report::columnsOf(grid.view)));
    report::writePdf(made, grid.folder.filePath("wide.pdf"));
}

constexpr Export kExports[] = {
    {"text", [](WideGrid& grid) { Export_Office(grid.context, grid.view, true, ".XLS"); }},
    {"text-sorted",
     [](WideGrid& grid) {
         grid.rows.setIndexFieldNames("City DESC;Rate DESC");
         Export_Office(grid.context, grid.view, true, ".XLS");
     }},
    {"html", [](WideGrid& grid) { Export_Html(grid.context, grid.view, "Wide"); }},
    {"dbf",
     [](WideGrid& grid) { Export_Dbf(grid.view, grid.folder.filePath("wide.dbf"), DbfText::Windows); }},
    {"dbf-dos",
     [](WideGrid& grid) { Export_Dbf(grid.view, grid.folder.filePath("wide.dbf"), DbfText::Dos); }},
    {"pdf", exportPdf},
    // The platform takes the clipboard's text as a whole.
    {"clipboard", [](WideGrid& grid) { Copy_Grid(grid.view, true); }},
};

// A line of what the system says of this process, in kilobytes.
double status(const QByteArray& line) {
    QFile file(QStringLiteral("/proc/self/status"));
    if (file.open(QIODevice::ReadOnly))
        for (const QByteArray& each : file.readAll().split('\n'))
            if (each.startsWith(line + ':'))
                return each.simplified().split(' ').at(1).toDouble();
    throw std::runtime_error("the system does not tell the memory of a process");
}

// The highest memory counts from here on.
void forgetHighest() {
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (!file.open(QIODevice::WriteOnly) || file.write("5") != 1 || !file.flush())
        throw std::runtime_error("the system does not forget the highest memory of a process");
}

}  // namespace

bool exportOnce(const QString& name) {
    for (const Export& each : kExports) {
        if (name != QLatin1String(each.name))
            continue;
        WideGrid grid;
        grid.view.resize(1000, 640);
        grid.view.show();
        QCoreApplication::processEvents();
        forgetHighest();
        const double before = status("VmRSS");
        each.run(grid);
        std::printf("%.1f %.1f\n", before / 1024, status("VmHWM") / 1024);
        return true;
    }
    return false;
}

void exportMemory() {
    wideCompany();
    for (const Export& each : kExports) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(), {"--export-memory", each.name});
        const bool ended = process.waitForFinished(-1) && process.exitCode() == 0;
        const QList<QByteArray> sizes = process.readAllStandardOutput().simplified().split(' ');
        if (!ended || sizes.size() != 2)
            throw std::runtime_error("the memory of an export could not be measured");
        const QString result = QStringLiteral("export-memory, %1").arg(each.name);
        // The platform takes the clipboard's text as a whole: there is no aim.
        const bool streamed = each.name != QLatin1String("clipboard");
        report(result, sizes[1].toDouble() / sizes[0].toDouble(),
               streamed ? std::optional(1.5) : std::optional<double>());
        detail(result, QStringLiteral("%1 MB, before it %2 MB").arg(sizes[1], sizes[0]));
    }
}

}  // namespace bench
