// Where a report goes: to a printer, or to a PDF file. Both show progress and can be given up.
#pragma once

#include "CompanionEntries.h"
#include "GridReport.h"

class QPagedPaintDevice;
class QWidget;

namespace report {

// What a caller hands over, made into what is printed. Missing parts of it are left out.
QString gridKeyOf(const TDLLPrnParam& parameters);
QString installDirOf(const TDLLPrnParam& parameters);
GridReport makeReport(const TDLLPrnParam& parameters, ReportTable table, const Grouping& grouping = {});

// The file that a report is offered to be written to: PDF/<grid key>.pdf below the installation folder.
QString suggestedPdf(const QString& installDir, const QString& gridKey);
// Writes all pages; the folder is made when missing. Refusal when the file cannot be written; one that was
// there before then stays whole, and no half file is left.
void writePdf(const GridReport& report, const QString& file);

// Lets the operator choose a printer and prints; Refusal where there is none.
void print(const GridReport& report, QWidget* parent);

}  // namespace report
