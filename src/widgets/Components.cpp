#include "Components.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include "Form.h"

namespace widgets {

QFont formFont(int pixelSize) {
    // What a machine without Tahoma takes in its stead may have no Persian letters at all.
    static const bool substituted = [] {
        QFont::insertSubstitution(QStringLiteral("Tahoma"), QStringLiteral("DejaVu Sans"));
        return true;
    }();
    Q_UNUSED(substituted);
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(pixelSize);
    return font;
}

Form* formOf(QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget())
        if (auto* form = qobject_cast<Form*>(widget))
            return form;
    return nullptr;
}

// --- Panel ------------------------------------------------------------------------------------------

Panel::Panel(QWidget* parent) : QFrame(parent) {
    setAutoFillBackground(true);
    // Its own, not the form's.
    QPalette colors = palette();
    colors.setColor(QPalette::Window, QGuiApplication::palette().color(QPalette::Window));
    setPalette(colors);
    setBevel(Bevel::None);
}

void Panel::setCaption(const QString& caption) {
    m_caption = caption;
    setAccessibleName(caption.trimmed());
    update();
}

void Panel::setBevel(Bevel bevel) {
    setFrameShape(bevel == Bevel::None ? QFrame::NoFrame : QFrame::Panel);
    setFrameShadow(bevel == Bevel::Lowered ? QFrame::Sunken : QFrame::Raised);
    setLineWidth(1);
}

void Panel::setColors(const QColor& background, const QColor& text) {
    QPalette colors = palette();
    colors.setColor(QPalette::Window, background);
    colors.setColor(QPalette::WindowText, text);
    setPalette(colors);
}

void Panel::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    if (m_caption.isEmpty())
        return;
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    QRect room = contentsRect().adjusted(3, 0, -3, 0);
    const int indent = captionIndent();
    const QString text = indent > 0 ? m_caption.trimmed() : m_caption;
    if (layoutDirection() == Qt::RightToLeft)
        room.setRight(room.right() - indent);
    else
        room.setLeft(room.left() + indent);
    const QString shown = fontMetrics().elidedText(text, Qt::ElideRight, room.width());
    // "Left" is mirrored with the layout.
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

// --- Shape ------------------------------------------------------------------------------------------

Shape::Shape(QWidget* parent)
    : QWidget(parent),
      m_brush(palette().color(QPalette::Highlight)),
      m_pen(palette().color(QPalette::HighlightedText)) {}

void Shape::setBrush(const QColor& brush) {
    m_brush = brush;
    update();
}

void Shape::setPen(const QColor& pen) {
    m_pen = pen;
    update();
}

void Shape::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(m_pen);
    painter.setBrush(m_brush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// --- SpeedButton ------------------------------------------------------------------------------------

SpeedButton::SpeedButton(QWidget* parent) : QToolButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setAutoRaise(true);
}

void SpeedButton::setGlyph(Glyph glyph) {
    m_glyph = glyph;
    update();
}

void SpeedButton::paintEvent(QPaintEvent* event) {
    if (m_glyph == Glyph::None) {
        QToolButton::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const QColor ink = palette().color(QPalette::WindowText);
    if (isEnabled() && (underMouse() || isDown())) {
        QColor veil = ink;
        veil.setAlpha(isDown() ? 90 : 50);
        painter.fillRect(rect().adjusted(1, 1, -1, -1), veil);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap));
    const QPointF centre = QRectF(rect()).center();
    constexpr qreal arm = 4;
    if (m_glyph == Glyph::Minimize) {
        painter.drawLine(centre + QPointF(-arm, arm), centre + QPointF(arm, arm));
    } else {
        painter.drawLine(centre + QPointF(-arm, -arm), centre + QPointF(arm, arm));
        painter.drawLine(centre + QPointF(-arm, arm), centre + QPointF(arm, -arm));
    }
}

// --- CaptionBar -------------------------------------------------------------------------------------

CaptionBar::CaptionBar(QWidget* parent) : Panel(parent) {
    setObjectName(QStringLiteral("Caption_Panel"));
    setColors(palette().color(QPalette::Highlight), palette().color(QPalette::HighlightedText));
}

// Captions begin with blanks that make room for the buttons; a wider font or button may need more.
int CaptionBar::captionIndent() const {
    const bool fromRight = layoutDirection() == Qt::RightToLeft;
    int taken = 0;
    for (const QObject* child : children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        if (widget == nullptr || widget->isHidden())
            continue;
        const QRect place = widget->geometry();
        const bool atBeginning = (place.center().x() > width() / 2) == fromRight;
        if (atBeginning)
            taken = qMax(taken, fromRight ? width() - place.left() : place.right() + 1);
    }
    qsizetype blanks = 0;
    while (blanks < caption().size() && caption()[blanks] == u' ')
        ++blanks;
    return taken == 0 ? 0 : qMax(taken + 6, fontMetrics().horizontalAdvance(caption().left(blanks)));
}

void CaptionBar::mousePressEvent(QMouseEvent* event) {
    Form* form = formOf(this);
    if (event->button() == Qt::LeftButton && form != nullptr)
        form->startDrag();
    event->accept();
}

}  // namespace widgets
