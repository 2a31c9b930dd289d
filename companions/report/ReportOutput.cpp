#include "ReportOutput.h"

#include <QDir>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>

#include "Errors.h"
#include "Progress.h"
#include "Step.h"

namespace report {
namespace {

QString propertyOf(const QObject* source, const char* name) {
    return source ? source->property(name).toString() : QString();
}

// Pages `first` to `last`, counted from 0. False when the device takes no more.
bool paintPages(const GridReport& report, QPagedPaintDevice& device, int first, int last,
                const QString& what) {
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    widgets::Progress progress(what, last - first + 1);
    for (int page = first; page <= last; ++page) {
        if (page > first && !device.newPage())
            return false;
        report.paint(painter, page);
        progress.advance(page - first + 1);
    }
    return painter.end();
}

}  // namespace

QString gridKeyOf(const TDLLPrnParam& parameters) {
    const QString own = parameters.GridKey.trimmed();
    return own.isEmpty() ? propertyOf(parameters.Source, companions::ReportSource::kGridKey) : own;
}

QString installDirOf(const TDLLPrnParam& parameters) {
    const QString own = parameters.HostText2.trimmed();
    return own.isEmpty() ? propertyOf(parameters.Source, companions::ReportSource::kInstallDir) : own;
}

GridReport makeReport(const TDLLPrnParam& parameters, ReportTable table, const Grouping& grouping) {
    const QString date = parameters.CurrentDate.trimmed();
    QHash<int, QColor> colours;
    for (const TColorRows* row : parameters.ColorRows)
        if (row)
            colours.insert(row->Row, row->Color);
    return {std::move(table),
            readProperties(installDirOf(parameters), gridKeyOf(parameters)),
            {{parameters.Title1, parameters.Title2, parameters.Title3},
             date.isEmpty() ? parameters.CurrentDate2.trimmed() : date,
             {parameters.Text1, parameters.Text2, parameters.Text3, parameters.Text4}},
            std::move(colours),
            grouping};
}

QString suggestedPdf(const QString& installDir, const QString& gridKey) {
    QString name = gridKey.isEmpty() ? QStringLiteral("Report") : gridKey;
    for (QChar& character : name)
        if (QStringLiteral("/\\:*?\"<>|").contains(character))
            character = u'_';
    return QDir::toNativeSeparators(
        QDir(installDir.isEmpty() ? QDir::homePath() : installDir).filePath("PDF/" + name + ".pdf"));
}

void writePdf(const GridReport& report, const QString& file) {
    const auto refuse = [&] {
        throw data::Refusal(
            QStringLiteral("فايل %1 نوشته نشد. پوشه و دسترسي به آن و جاي خالي ديسک را بررسي کنيد.")
                .arg(data::pathInText(file)));
    };
    const QFileInfo target(file);
    if (target.fileName().isEmpty() || target.isDir() || !QDir().mkpath(target.absolutePath()))
        refuse();
    QSaveFile output(target.absoluteFilePath());  // a name of its own until all is written
    if (!output.open(QIODevice::WriteOnly))
        refuse();
    {
        QPdfWriter writer(&output);
        writer.setResolution(kUnitsPerInch);
        writer.setTitle(report.title());
        writer.setPageLayout(report.pageLayout());
        if (!paintPages(report, writer, 0, report.pageCount() - 1, QStringLiteral("ساختن فايل PDF ...")))
            refuse();
    }
    if (!output.commit())
        refuse();
}

void print(const GridReport& report, QWidget* parent) {
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        throw data::Refusal(QStringLiteral("چاپگري نصب نشده است. مي توانيد PDF بسازيد."));
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(report.title());
    printer.setPageLayout(report.pageLayout());
    QPrintDialog dialog(&printer, parent);
    dialog.setLayoutDirection(Qt::RightToLeft);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, report.pageCount());
    if (widgets::runDialog(dialog) != QDialog::Accepted)
        return;
    // What was previewed is printed: on its paper, with the report's own margins.
    printer.setFullPage(true);
    printer.setPageLayout(report.pageLayout());
    const bool range = printer.printRange() == QPrinter::PageRange;
    const int first = range ? qBound(1, printer.fromPage(), report.pageCount()) : 1;
    const int last = range ? qBound(first, printer.toPage(), report.pageCount()) : report.pageCount();
    if (!paintPages(report, printer, first - 1, last - 1, QStringLiteral("چاپ ...")))
        throw data::Refusal(QStringLiteral("چاپگر کار را نپذيرفت. آماده بودن چاپگر را بررسي کنيد."));
}

}  // namespace report
