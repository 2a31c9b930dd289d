// A grid on paper: its pages, computed without painting, and the painting of each on any device. Lengths
// are twentieths of a point, so that a page breaks alike on the screen, on a printer and in a file.
#pragma once

#include <QColor>
#include <QFont>
#include <QHash>
#include <QPageLayout>
#include <QStringList>

#include "ReportProperties.h"
#include "ReportTable.h"

class QPainter;

namespace report {

inline constexpr int kUnitsPerInch = 1440;

// What stands around the table.
struct ReportTexts {
    QStringList titles;  // blank ones take no room
    QString date;
    QStringList foot;  // at the bottom of each page, from the right
};

// Rows with one value in a column, one behind the other, may be summed and set apart.
struct Grouping {
    int column = -1;  // of the table; -1 for none
    bool subTotals = true;
    bool newPages = false;  // each group begins on a page of its own
};

// A table laid out on pages; whoever has a painter can paint them.
class GridReport {
public:
    // The first title gives way to the one that the operator has stored.
    GridReport(ReportTable table, ReportProperties properties, ReportTexts texts,
               QHash<int, QColor> rowColors = {}, const Grouping& grouping = {});

    // At least one. Columns that do not fit the width go on on further pages to the side, which follow
    // the page of the same rows.
    int pageCount() const { return int(m_pageStarts.size() * m_bands.size()); }
    // The paper, without margins: the report keeps its own.
    QPageLayout pageLayout() const { return report::pageLayout(m_properties); }
    QString title() const { return m_texts.titles.value(0); }
    // Paints a page, counted from 0, its paper's corner at the painter's origin.
    void paint(QPainter& painter, int page) const;

private:
    enum class LineKind { Row, Group, SubTotal, Total };
    struct Line {
        LineKind kind = LineKind::Row;
        int index = 0;  // of a row in the table, or of a group
    };
    struct Group {
        QString caption;
        std::vector<long double> sums;  // one a column
    };
    // Columns that stand side by side on a page. Column -1 counts the rows.
    struct Band {
        QList<int> columns;
        QList<qreal> widths;
        qreal width() const;
    };

    // layout (ReportLayout.cpp)
    void readLines();
    std::vector<int> groupedRows() const;
    void measureColumns();
    void makeBands(qreal numbers, const QList<qreal>& natural);
    void measureHeights();
    void breakPages();
    qreal naturalWidth(int column) const;
    bool anyTotals() const;
    qreal padding() const;  // beside a cell's text
    qreal roomWidth() const { return m_room.width(); }
    QFont font(qreal points, bool bold = false) const;
    QFont bodyFont(bool bold = false) const;

    // painting (ReportPainter.cpp)
    void paintHead(QPainter& painter, int page) const;
    void paintFoot(QPainter& painter) const;
    qreal paintTitles(QPainter& painter, const Band& band, qreal top) const;
    void paintLine(QPainter& painter, const Band& band, size_t place, qreal top) const;
    void paintCells(QPainter& painter, const Band& band, const Line& line, const QRectF& room,
                    int number) const;
    void paintSums(QPainter& painter, const Band& band, const Group& sums, const QString& caption,
                   const QRectF& room) const;
    QString groupText(int group) const;
    QColor ground(const Line& line, int number) const;
    QRectF bandRoom(const Band& band) const;

    ReportTable m_table;
    ReportProperties m_properties;
    ReportTexts m_texts;
    QHash<int, QColor> m_rowColors;
    Grouping m_grouping;

    std::vector<Line> m_lines;
    std::vector<int> m_numbers;  // of each line: the count of rows up to it
    std::vector<Group> m_groups;
    Group m_total;
    std::vector<Band> m_bands;
    std::vector<size_t> m_pageStarts;  // the first line of each run of side pages
    QRectF m_room;                     // inside the margins
    qreal m_scale = 1;                 // of the body's font
    qreal m_headHeight = 0, m_footHeight = 0, m_titleHeight = 0, m_lineHeight = 0;
};

}  // namespace report
