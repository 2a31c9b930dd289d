#include "MessageIcons.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

struct Drawing {
    int corners;  // 0 for a disc
    QColor light, dark;
    const char16_t* sign;
};

Drawing drawingOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Warning:
            return {3, QColor(0xFFD85A), QColor(0xE8A200), u"!"};
        case MessageIcon::Question:
            return {0, QColor(0x5AA7EC), QColor(0x1F6AB5), u"؟"};
        case MessageIcon::Error:
            return {0, QColor(0xF0756B), QColor(0xC22B20), u"×"};
        case MessageIcon::Stop:
            return {8, QColor(0xE9645A), QColor(0xAE1F18), u"–"};
        case MessageIcon::Information:
            return {0, QColor(0x63BE8A), QColor(0x22814C), u"i"};
    }
    return {};
}

QPainterPath outline(int corners, const QRectF& frame) {
    QPainterPath path;
    if (corners == 0) {
        path.addEllipse(frame);
        return path;
    }
    if (corners == 3) {
        path.moveTo(frame.center().x(), frame.top());
        path.lineTo(frame.bottomRight());
        path.lineTo(frame.bottomLeft());
        path.closeSubpath();
        return path;
    }
    const qreal cut = frame.width() * 0.293;
    path.addPolygon(QPolygonF({{frame.left() + cut, frame.top()},
                               {frame.right() - cut, frame.top()},
                               {frame.right(), frame.top() + cut},
                               {frame.right(), frame.bottom() - cut},
                               {frame.right() - cut, frame.bottom()},
                               {frame.left() + cut, frame.bottom()},
                               {frame.left(), frame.bottom() - cut},
                               {frame.left(), frame.top() + cut}}));
    path.closeSubpath();
    return path;
}

}  // namespace

QPixmap messageIcon(MessageIcon icon, QSize size, qreal scale) {
    QPixmap pixmap(size * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);

    const Drawing drawing = drawingOf(icon);
    const qreal side = qMin(size.width(), size.height()) - 3;
    const QRectF frame((size.width() - side) / 2, (size.height() - side) / 2, side, side);
    QLinearGradient fill(frame.topLeft(), frame.bottomLeft());
    fill.setColorAt(0, drawing.light);
    fill.setColorAt(1, drawing.dark);

    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(drawing.dark.darker(115), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(fill);
    painter.drawPath(outline(drawing.corners, frame));

    // The sign is a path of its outline, not text: it is centred by what is seen of it.
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setBold(true);
    font.setPixelSize(qRound(side * (icon == MessageIcon::Error || icon == MessageIcon::Stop ? 0.9 : 0.62)));
    QPainterPath sign;
    sign.addText(0, 0, font, QString::fromUtf16(drawing.sign));
    const qreal sink = drawing.corners == 3 ? side * 0.12 : 0;
    sign.translate(frame.center() - sign.boundingRect().center() + QPointF(0, sink));
    painter.fillPath(sign, icon == MessageIcon::Warning ? QColor(0x40300A) : Qt::white);
    return pixmap;
}
