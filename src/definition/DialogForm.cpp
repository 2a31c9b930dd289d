#include "DialogForm.h"

#include <QPainter>

#include "Components.h"

namespace definition {

void DialogForm::buildDialog(const QList<forms::Component>& components) {
    forms::buildComponents(*this, components);
    layout()->setContentsMargins(1, 0, 1, 1);  // the edge of a borderless window
}

void DialogForm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void DialogForm::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    auto* shape = component<widgets::Shape>(QStringLiteral("Close_Shape"));
    if (!shape)
        return;
    shape->move(width() - shape->width() - 10, shape->y());
    component<QWidget>(QStringLiteral("sb_Closed"))->move(shape->x() + 1, shape->y() + 1);
}

}  // namespace definition
