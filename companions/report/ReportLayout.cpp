#include <QCollator>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "Components.h"
#include "GridReport.h"
#include "ReportMeasures.h"

namespace report {
namespace {

constexpr qreal kReadable = 6.5;     // points: no body gets smaller
constexpr qreal kWidestShare = 0.4;  // of the page, for one column
constexpr qreal kReserve = 1.02;     // of a text measured
constexpr qreal kStretch = 1.8;      // of a table that is narrower than the page

qreal longestWord(const QFontMetricsF& metrics, const QString& text) {
    qreal width = 0;
    for (const QString& word : text.split(u' ', Qt::SkipEmptyParts))
        width = qMax(width, metrics.horizontalAdvance(word));
    return width;
}

}  // namespace

qreal GridReport::Band::width() const {
    return std::accumulate(widths.begin(), widths.end(), 0.0);
}

GridReport::GridReport(ReportTable table, ReportProperties properties, ReportTexts texts,
                       QHash<int, QColor> rowColors, const Grouping& grouping)
    : m_table(std::move(table)),
      m_properties(std::move(properties)),
      m_texts(std::move(texts)),
      m_rowColors(std::move(rowColors)),
      m_grouping(grouping) {
    if (faultOf(m_properties).part != Part::None)
        m_properties = {};
    if (m_grouping.column >= m_table.columns().size())
        m_grouping.column = -1;
    if (!m_properties.title.isEmpty()) {
        if (m_texts.titles.isEmpty())
            m_texts.titles.append(QString());
        m_texts.titles[0] = m_properties.title;
    }
    for (QString& title : m_texts.titles)
        title = title.trimmed();
    m_texts.titles.removeAll(QString());

    const QMarginsF margins = m_properties.margins * (kUnitsPerInch / 25.4);
    const QSizeF paper = pageLayout().fullRect(QPageLayout::Point).size() * (kUnitsPerInch / 72.0);
    m_room = QRectF(QPointF(), paper).marginsRemoved(margins);
    readLines();
    measureColumns();
    measureHeights();
    breakPages();
}

QFont GridReport::font(qreal points, bool bold) const {
    widgets::formFont();  // brings Persian letters to machines without Tahoma
    QFont font(m_properties.family);
    font.setPixelSize(qRound(points * kUnitsPerInch / 72));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

qreal GridReport::padding() const {
    return kPadding * m_scale;
}

QFont GridReport::bodyFont(bool bold) const {
    return font(m_properties.bodySize * m_scale, bold);
}

// --- lines ------------------------------------------------------------------------------------------

bool GridReport::anyTotals() const {
    const auto totalled = [](const ReportColumn& column) { return column.totalled; };
    return m_table.rowCount() > 0 &&
           std::any_of(m_table.columns().begin(), m_table.columns().end(), totalled);
}

std::vector<int> GridReport::groupedRows() const {
    std::vector<int> rows(size_t(m_table.rowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    const int column = m_grouping.column;
    if (column < 0)
        return rows;
    if (m_table.columns()[column].isNumber()) {
        std::stable_sort(rows.begin(), rows.end(), [&](int one, int other) {
            return m_table.number(one, column) < m_table.number(other, column);
        });
        return rows;
    }
    const QCollator collator{QLocale(QLocale::Persian)};
    std::vector<QCollatorSortKey> keys;
    keys.reserve(rows.size());
    for (const int row : rows)
        keys.push_back(collator.sortKey(m_table.text(row, column)));
    std::stable_sort(rows.begin(), rows.end(),
                     [&](int one, int other) { return keys[size_t(one)] < keys[size_t(other)]; });
    return rows;
}

void GridReport::readLines() {
    const std::vector<int> rows = groupedRows();
    const size_t columns = size_t(m_table.columns().size());
    const bool subTotals = m_grouping.column >= 0 && m_grouping.subTotals && anyTotals();
    m_total.sums.assign(columns, 0);
    m_lines.reserve(rows.size() + 1);
    int number = 0;
    const auto add = [&](LineKind kind, int index) {
        m_lines.push_back({kind, index});
        m_numbers.push_back(number);
    };
    const auto closeGroup = [&] {
        if (subTotals && !m_groups.empty())
            add(LineKind::SubTotal, int(m_groups.size()) - 1);
    };
    for (const int row : rows) {
        if (m_grouping.column >= 0) {
            const QString value = m_table.text(row, m_grouping.column);
            if (m_groups.empty() || m_groups.back().caption != value) {
                closeGroup();
                m_groups.push_back({value, std::vector<long double>(columns, 0)});
                add(LineKind::Group, int(m_groups.size()) - 1);
            }
        }
        ++number;
        add(LineKind::Row, row);
        for (size_t column = 0; column < columns; ++column) {
            if (!m_table.columns()[int(column)].totalled)
                continue;
            const long double value = m_table.number(row, int(column));
            m_total.sums[column] += value;
            if (!m_groups.empty())
                m_groups.back().sums[column] += value;
        }
    }
    closeGroup();
    if (m_properties.totals && anyTotals())
        add(LineKind::Total, 0);
}

// --- columns ----------------------------------------------------------------------------------------

qreal GridReport::naturalWidth(int column) const {
    const QFontMetricsF metrics(bodyFont()), bold(bodyFont(true));
    if (column < 0)
        return qMax(metrics.horizontalAdvance(QString::number(m_table.rowCount())),
                    bold.horizontalAdvance(rowNumberTitle())) *
                   kReserve +
               2 * kPadding;
    const ReportColumn& definition = m_table.columns()[column];
    // A title may take two lines.
    qreal width = qMax(longestWord(bold, definition.title), bold.horizontalAdvance(definition.title) * 0.6);
    if (definition.isMark())
        width = qMax(width, metrics.horizontalAdvance(QStringLiteral("MM")));
    for (const int row : m_table.wideRows(column))
        width = qMax(width, metrics.horizontalAdvance(m_table.text(row, column)));
    if (definition.totalled)
        width = qMax(width, bold.horizontalAdvance(m_table.sumText(m_total.sums[size_t(column)], column)));
    return qMin(width * kReserve, roomWidth() * kWidestShare) + 2 * kPadding;
}

void GridReport::measureColumns() {
    QList<qreal> natural;
    const qreal numbers = m_properties.rowNumbers && !m_table.columns().isEmpty() ? naturalWidth(-1) : 0;
    qreal whole = numbers;
    for (int column = 0; column < m_table.columns().size(); ++column) {
        natural.append(m_table.columns()[column].shown ? naturalWidth(column) : 0);
        whole += natural.last();
    }
    if (whole > roomWidth())
        m_scale = qMax(roomWidth() / whole, qMin(1.0, kReadable / m_properties.bodySize));
    // Down to a whole size of the font: texts must not grow by rounding.
    const qreal size = m_properties.bodySize * kUnitsPerInch / 72.0;
    m_scale = std::floor(m_scale * size) / size;
    makeBands(numbers, natural);
}

// Each band begins with what tells its rows apart: their number, and a code in the first column.
void GridReport::makeBands(qreal numbers, const QList<qreal>& natural) {
    const qreal room = roomWidth() / m_scale * (1 + 1e-9);
    Band head;
    if (numbers > 0) {
        head.columns.append(-1);
        head.widths.append(numbers);
    }
    int first = 0;
    if (natural.size() > 1 && m_table.columns()[0].kind == widgets::ColumnKind::Code &&
        m_table.columns()[0].shown) {
        head.columns.append(0);
        head.widths.append(natural[0]);
        first = 1;
    }
    Band band = head;
    for (int column = first; column < natural.size(); ++column) {
        if (!m_table.columns()[column].shown)
            continue;
        const bool full = band.width() + natural[column] > room;
        if (full && band.columns.size() > head.columns.size()) {
            m_bands.push_back(band);
            band = head;
        }
        band.columns.append(column);
        band.widths.append(natural[column]);
    }
    m_bands.push_back(band);
    for (Band& each : m_bands) {
        const qreal stretch = m_bands.size() > 1 ? 1 : qMin(kStretch, room / qMax(1.0, each.width()));
        for (qreal& width : each.widths)
            width *= m_scale * qMax(1.0, stretch);
    }
}

// --- pages ------------------------------------------------------------------------------------------

void GridReport::measureHeights() {
    const QFontMetricsF body(bodyFont()), bold(bodyFont(true));
    m_lineHeight = body.height() * 1.3;
    for (const Band& band : m_bands) {
        for (int i = 0; i < band.columns.size(); ++i) {
            if (band.columns[i] < 0)
                continue;
            const QRectF room(0, 0, band.widths[i] - padding(), 1e6);
            const QRectF taken = bold.boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap,
                                                   m_table.columns()[band.columns[i]].title);
            m_titleHeight = qMax(m_titleHeight, taken.height());
        }
    }
    m_titleHeight = qMin(qMax(m_titleHeight, bold.height()), 3 * bold.height()) + 2 * padding();
    for (int i = 0; i < m_texts.titles.size(); ++i)
        m_headHeight += QFontMetricsF(font(titlePoints(m_properties, i), true)).height() * kTitleSpacing;
    const qreal small = QFontMetricsF(font(m_properties.bodySize)).height() * kTitleSpacing;
    m_headHeight += small;
    for (const QString& text : m_texts.foot)
        if (!text.trimmed().isEmpty())
            m_footHeight = small * 1.5;
}

void GridReport::breakPages() {
    const qreal room = m_room.height() - m_headHeight - m_titleHeight - m_footHeight;
    const size_t most = size_t(qMax(1.0, std::floor(room / m_lineHeight)));
    m_pageStarts = {0};
    for (size_t line = 1; line < m_lines.size(); ++line) {
        const bool group = m_lines[line].kind == LineKind::Group;
        const size_t taken = line - m_pageStarts.back();
        // A group's caption does not part from its first row.
        const bool alone = group && taken + 1 >= most && most > 1;
        if (taken >= most || alone || (group && m_grouping.newPages))
            m_pageStarts.push_back(line);
    }
}

}  // namespace report
