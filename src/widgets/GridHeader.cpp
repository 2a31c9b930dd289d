#include "GridHeader.h"

#include <QMouseEvent>
#include <QPainter>

namespace widgets {
namespace {

constexpr int kIndicatorWidth = 18;
constexpr qreal kNarrowestTitle = 0.72;

// The pointer looks into the row: to the left where the rows begin at the right.
void drawArrow(QPainter& painter, bool rightToLeft) {
    const qreal side = rightToLeft ? -1 : 1;
    const QPointF points[] = {{side * 4, 0}, {-side * 2.5, -5}, {-side * 2.5, 5}};
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(points, 3);
}

void drawPencil(QPainter& painter) {
    painter.rotate(45);
    painter.setPen(Qt::NoPen);
    painter.drawRect(QRectF(-1.75, -7, 3.5, 2));
    painter.drawRect(QRectF(-1.75, -4, 3.5, 7));
    const QPointF tip[] = {{-1.75, 4}, {1.75, 4}, {0, 7.5}};
    painter.drawPolygon(tip, 3);
}

void drawStar(QPainter& painter) {
    painter.setPen(QPen(painter.brush(), 1.7, Qt::SolidLine, Qt::RoundCap));
    for (int arm = 0; arm < 3; ++arm) {
        painter.drawLine(QPointF(0, -4.5), QPointF(0, 4.5));
        painter.rotate(60);
    }
}

}  // namespace

void paintRaised(QPainter& painter, const QRect& rect, const QColor& face) {
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, face.lighter(104));
    gradient.setColorAt(1, face.darker(104));
    painter.fillRect(rect, gradient);
    painter.setPen(face.lighter(125));
    painter.drawLine(rect.topLeft(), rect.topRight());
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.setPen(face.darker(145));
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.drawLine(rect.topLeft(), rect.bottomLeft());
}

// --- titles -----------------------------------------------------------------------------------------

TitleHeader::TitleHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
    setSectionsMovable(true);
    setHighlightSections(false);
    setMinimumSectionSize(8);
    setDefaultSectionSize(64);
}

QSize TitleHeader::sizeHint() const {
    return {QHeaderView::sizeHint().width(), fontMetrics().height() + 9};
}

void TitleHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    const Colors color = colors(logicalIndex);
    painter->save();
    paintRaised(*painter, rect, color.face);
    painter->setPen(color.text);
    painter->setLayoutDirection(layoutDirection());
    const QString title = model()->headerData(logicalIndex, orientation()).toString();
    const QRect room = rect.adjusted(2, 1, -2, -1);
    painter->setClipRect(room);
    // Columns are as wide as their titles are in the suite's own font; where another stands in for it
    // a title that is a little too wide is condensed, and cut only beyond that.
    const int width = qMax(1, fontMetrics().horizontalAdvance(title));
    const qreal narrowing = qBound(kNarrowestTitle, qreal(room.width()) / width, 1.0);
    QRectF place(0, 0, room.width() / narrowing, room.height());
    painter->translate(room.topLeft());
    painter->scale(narrowing, 1);
    const bool fits = width <= place.width();
    painter->drawText(
        place, Qt::AlignVCenter | Qt::TextSingleLine | (fits ? Qt::AlignHCenter : Qt::AlignLeft), title);
    painter->restore();
}

// --- indicator --------------------------------------------------------------------------------------

IndicatorHeader::IndicatorHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
    setSectionResizeMode(QHeaderView::Fixed);
    setHighlightSections(false);
    setFixedWidth(kIndicatorWidth);
}

QSize IndicatorHeader::sizeHint() const {
    return {kIndicatorWidth, QHeaderView::sizeHint().height()};
}

void IndicatorHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    painter->save();
    paintRaised(*painter, rect, face);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(rect).center());
    painter->setBrush(palette().color(QPalette::WindowText));
    switch (indicator(logicalIndex)) {
        case Indicator::None:
            break;
        case Indicator::Current:
            drawArrow(*painter, layoutDirection() == Qt::RightToLeft);
            break;
        case Indicator::Edited:
            drawPencil(*painter);
            break;
        case Indicator::New:
            drawStar(*painter);
            break;
    }
    painter->restore();
}

// The indicator only shows; a click on it moves nothing.
void IndicatorHeader::mousePressEvent(QMouseEvent* event) {
    event->ignore();
}

}  // namespace widgets
