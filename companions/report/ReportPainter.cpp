#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "GridReport.h"
#include "ReportMeasures.h"

namespace report {
namespace {

constexpr QRgb kLine = 0xff9aa3ad;
constexpr QRgb kTitleGround = 0xffdde5ee;
constexpr QRgb kShade = 0xfff3f6fa;
constexpr QRgb kGroupGround = 0xffe9eef4;
constexpr qreal kThin = 6;

// Numbers read from the left whatever stands around them, else their sign would change sides; one that is
// too long gets smaller, for a part of a number is another number.
void drawFitted(QPainter& painter, const QRectF& room, int alignment, const QString& text, bool number) {
    if (text.isEmpty())
        return;
    const QFontMetricsF metrics(painter.font());
    const int flags = alignment | Qt::AlignVCenter | Qt::TextSingleLine;
    painter.setLayoutDirection(number ? Qt::LeftToRight : Qt::RightToLeft);
    if (qreal(text.size()) * metrics.averageCharWidth() * 1.5 <= room.width()) {
        painter.drawText(room, flags, text);
    } else if (!number) {
        painter.drawText(room, flags, metrics.elidedText(text, Qt::ElideRight, room.width()));
    } else {
        const QFont font = painter.font();
        QFont smaller = font;
        const qreal share = qMin(1.0, room.width() / metrics.horizontalAdvance(text));
        smaller.setPixelSize(qMax(1, int(font.pixelSize() * share)));
        painter.setFont(smaller);
        painter.drawText(room, flags, text);
        painter.setFont(font);
    }
}

constexpr int kRight = Qt::AlignRight | Qt::AlignAbsolute;
constexpr int kLeft = Qt::AlignLeft | Qt::AlignAbsolute;

void drawMark(QPainter& painter, const QRectF& cell, qreal size) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(painter.pen().color(), size / 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF centre = cell.center();
    const QPointF stroke[] = {centre + QPointF(-0.4, 0.05) * size, centre + QPointF(-0.12, 0.35) * size,
                              centre + QPointF(0.45, -0.38) * size};
    painter.drawPolyline(stroke, 3);
    painter.restore();
}

}  // namespace

QRectF GridReport::bandRoom(const Band& band) const {
    const qreal width = band.width();
    // A table that fills its page no more than in part stands in the middle; side pages begin at the right.
    const qreal left = m_bands.size() > 1 ? m_room.right() - width : m_room.center().x() - width / 2;
    return {left, m_room.top(), width, m_room.height()};
}

void GridReport::paint(QPainter& painter, int page) const {
    if (page < 0 || page >= pageCount())
        return;
    const size_t bands = m_bands.size();
    const Band& band = m_bands[size_t(page) % bands];
    const size_t run = size_t(page) / bands;
    const size_t first = m_pageStarts[run];
    const size_t end = run + 1 < m_pageStarts.size() ? m_pageStarts[run + 1] : m_lines.size();

    painter.save();
    const qreal scale = qreal(painter.device()->logicalDpiX()) / kUnitsPerInch;
    painter.scale(scale, scale);
    paintHead(painter, page);
    paintFoot(painter);
    qreal top = m_room.top() + m_headHeight;
    if (!band.columns.isEmpty())
        top = paintTitles(painter, band, top);
    for (size_t line = first; line < end; ++line) {
        paintLine(painter, band, line, top);
        top += m_lineHeight;
    }
    if (m_lines.empty()) {
        painter.setFont(bodyFont());
        painter.setPen(Qt::black);
        const QString text = m_table.columns().isEmpty() ? QStringLiteral("ستوني براي چاپ ديده نمي شود.")
                                                         : QStringLiteral("رديفي براي چاپ نيست.");
        drawFitted(painter, {m_room.left(), top, m_room.width(), 2 * m_lineHeight}, Qt::AlignHCenter, text,
                   false);
    }
    painter.restore();
}

void GridReport::paintHead(QPainter& painter, int page) const {
    painter.setPen(Qt::black);
    qreal top = m_room.top();
    for (int i = 0; i < m_texts.titles.size(); ++i) {
        painter.setFont(font(titlePoints(m_properties, i), i == 0));
        const qreal height = QFontMetricsF(font(titlePoints(m_properties, i), true)).height() * kTitleSpacing;
        drawFitted(painter, {m_room.left(), top, m_room.width(), height}, Qt::AlignHCenter, m_texts.titles[i],
                   false);
        top += height;
    }
    painter.setFont(font(m_properties.bodySize));
    const QRectF line(m_room.left(), top, m_room.width(), m_room.top() + m_headHeight - top);
    if (!m_texts.date.trimmed().isEmpty())
        drawFitted(painter, line, kRight, QStringLiteral("تاريخ: ") + m_texts.date.trimmed(), false);
    drawFitted(painter, line, kLeft, QStringLiteral("صفحه %1 از %2").arg(page + 1).arg(pageCount()), false);
}

void GridReport::paintFoot(QPainter& painter) const {
    QStringList texts;
    for (const QString& text : m_texts.foot)
        if (!text.trimmed().isEmpty())
            texts.append(text.trimmed());
    painter.setFont(font(m_properties.bodySize));
    const qreal width = m_room.width() / qMax<qsizetype>(1, texts.size());
    for (int i = 0; i < texts.size(); ++i) {
        const QRectF room(m_room.right() - (i + 1) * width, m_room.bottom() - m_footHeight, width,
                          m_footHeight);
        drawFitted(painter, room, texts.size() == 1 ? kRight : int(Qt::AlignHCenter), texts[i], false);
    }
}

qreal GridReport::paintTitles(QPainter& painter, const Band& band, qreal top) const {
    const QRectF room = bandRoom(band);
    const QRectF row(room.left(), top, room.width(), m_titleHeight);
    painter.fillRect(row, QColor(kTitleGround));
    painter.setFont(bodyFont(true));
    painter.setLayoutDirection(Qt::RightToLeft);
    qreal right = row.right();
    for (int i = 0; i < band.columns.size(); ++i) {
        const QRectF cell(right - band.widths[i], top, band.widths[i], m_titleHeight);
        const int column = band.columns[i];
        const QString title = column < 0 ? rowNumberTitle() : m_table.columns()[column].title;
        painter.setPen(Qt::black);
        painter.save();
        painter.setClipRect(cell);
        painter.drawText(cell.adjusted(padding() / 2, 0, -padding() / 2, 0),
                         Qt::AlignCenter | Qt::TextWordWrap, title);
        painter.restore();
        painter.setPen(QPen(QColor(kLine), kThin));
        painter.drawRect(cell);
        right = cell.left();
    }
    return top + m_titleHeight;
}

QColor GridReport::ground(const Line& line, int number) const {
    switch (line.kind) {
        case LineKind::Group:
        case LineKind::SubTotal:
            return QColor(kGroupGround);
        case LineKind::Total:
            return QColor(kTitleGround);
        case LineKind::Row:
            break;
    }
    if (const QColor own = m_rowColors.value(line.index); own.isValid())
        return own;
    return m_properties.shadedRows && number % 2 == 0 ? QColor(kShade) : QColor();
}

QString GridReport::groupText(int group) const {
    const QString& value = m_groups[size_t(group)].caption;
    return m_table.columns()[m_grouping.column].title + QStringLiteral(": ") +
           (value.isEmpty() ? QStringLiteral("-") : value);
}

void GridReport::paintLine(QPainter& painter, const Band& band, size_t place, qreal top) const {
    const Line& line = m_lines[place];
    const int number = m_numbers[place];
    const QRectF whole = bandRoom(band);
    const QRectF room(whole.left(), top, whole.width(), m_lineHeight);
    const QColor colour = ground(line, number);
    if (colour.isValid())
        painter.fillRect(room, colour);
    painter.setPen(QPen(QColor(kLine), kThin));
    painter.drawRect(room);
    painter.setFont(bodyFont(line.kind != LineKind::Row));
    painter.setPen(colour.isValid() && colour.lightness() < 110 ? Qt::white : Qt::black);
    if (line.kind == LineKind::Row) {
        paintCells(painter, band, line, room, number);
    } else if (line.kind == LineKind::Group) {
        drawFitted(painter, room.adjusted(padding(), 0, -padding(), 0), kRight, groupText(line.index), false);
    } else if (line.kind == LineKind::SubTotal) {
        const Group& group = m_groups[size_t(line.index)];
        paintSums(painter, band, group, QStringLiteral("جمع ") + groupText(line.index), room);
    } else {
        paintSums(painter, band, m_total, m_groups.empty() ? QStringLiteral("جمع") : QStringLiteral("جمع کل"),
                  room);
    }
}

void GridReport::paintCells(QPainter& painter, const Band& band, const Line& line, const QRectF& room,
                            int number) const {
    const QColor ink = painter.pen().color();
    qreal right = room.right();
    for (int i = 0; i < band.columns.size(); ++i) {
        const QRectF cell(right - band.widths[i], room.top(), band.widths[i], room.height());
        right = cell.left();
        if (i > 0) {
            painter.setPen(QPen(QColor(kLine), kThin));
            painter.drawLine(cell.topRight(), cell.bottomRight());
            painter.setPen(ink);
        }
        const QRectF inside = cell.adjusted(padding(), 0, -padding(), 0);
        if (band.columns[i] < 0) {
            drawFitted(painter, inside, Qt::AlignHCenter, QString::number(number), true);
            continue;
        }
        const ReportColumn& column = m_table.columns()[band.columns[i]];
        const QString text = m_table.text(line.index, band.columns[i]);
        const bool centred = column.centred || column.isMark();
        if (column.isMark() && text == QStringLiteral("✓"))
            drawMark(painter, cell, QFontMetricsF(painter.font()).ascent() * 0.8);
        else
            drawFitted(painter, inside, centred ? int(Qt::AlignHCenter) : kRight, text, column.isNumber());
    }
}

// The caption takes the columns before the first sum.
void GridReport::paintSums(QPainter& painter, const Band& band, const Group& sums, const QString& caption,
                           const QRectF& room) const {
    const QColor ink = painter.pen().color();
    qreal right = room.right(), captionLeft = room.right();
    bool captionOpen = true;
    for (int i = 0; i < band.columns.size(); ++i) {
        const QRectF cell(right - band.widths[i], room.top(), band.widths[i], room.height());
        right = cell.left();
        const int column = band.columns[i];
        const bool sum = column >= 0 && m_table.columns()[column].totalled;
        captionOpen = captionOpen && !sum;
        if (captionOpen)
            captionLeft = cell.left();
        if (!captionOpen && i > 0) {
            painter.setPen(QPen(QColor(kLine), kThin));
            painter.drawLine(cell.topRight(), cell.bottomRight());
            painter.setPen(ink);
        }
        if (sum)
            drawFitted(painter, cell.adjusted(padding(), 0, -padding(), 0),
                       m_table.columns()[column].centred ? int(Qt::AlignHCenter) : kRight,
                       m_table.sumText(sums.sums[size_t(column)], column), true);
    }
    const QRectF captionRoom(captionLeft, room.top(), room.right() - captionLeft, room.height());
    drawFitted(painter, captionRoom.adjusted(padding(), 0, -padding(), 0), kRight, caption, false);
}

}  // namespace report
