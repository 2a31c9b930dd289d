// How a report looks on paper, as the operator has set it. Kept per grid key in Data/Reports.ini of the
// installation folder.
#pragma once

#include <QMarginsF>
#include <QPageLayout>
#include <QString>

namespace report {

// A size of paper.
struct Paper {
    QString key;  // as it is stored
    QString caption;
    QPageSize::PageSizeId size;
};
// Those that can be chosen, in their order.
const QList<Paper>& papers();

// How the reports of one grid look, as the operator has set it.
struct ReportProperties {
    QString title;  // in place of the page's own; empty for that one
    QString paper = QStringLiteral("A4");
    bool landscape = false;
    QMarginsF margins{12, 12, 12, 12};  // millimetres
    QString family = QStringLiteral("Tahoma");
    int titleSize = 14, bodySize = 9;  // points
    bool shadedRows = true;            // every second row on a light ground
    bool rowNumbers = true;
    bool totals = true;

    bool operator==(const ReportProperties&) const = default;
};

// The paper with its orientation; the margins are the report's own and not part of it.
QPageLayout pageLayout(const ReportProperties& properties);

// The part of the properties that cannot be used, and why; an empty sentence when all of them can.
enum class Part { None, Title, Paper, Margins, Family, TitleSize, BodySize };
struct Fault {
    Part part = Part::None;
    QString sentence;
};
Fault faultOf(const ReportProperties& properties);

// What is stored for the key. What is missing, or cannot be used, has its default.
ReportProperties readProperties(const QString& installDir, const QString& gridKey);
// Refusal when they are faulty or the file cannot be written; the file is then as it was.
void storeProperties(const QString& installDir, const QString& gridKey, const ReportProperties& properties);

}  // namespace report
