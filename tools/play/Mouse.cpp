#include "Mouse.h"

#include <QtTest/qtestspontaneevent.h>
#include <QApplication>
#include <QMouseEvent>

namespace play {

Mouse::Mouse(QWidget* widget, QPoint point) : m_widget(widget), m_point(point) {
    QWidget* child = widget->childAt(point);
    m_target = child != nullptr ? child : widget;
}

void Mouse::send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
    m_held = held;
    if (!m_widget || !m_target)
        return;  // an earlier event of the same gesture took the widget away
    QMouseEvent event(type, m_target->mapFrom(m_widget, m_point),
                      m_widget->mapTo(m_widget->window(), m_point), m_widget->mapToGlobal(m_point), button,
                      held, Qt::NoModifier);
    // Qt gives the focus only for what comes from outside the program.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(m_target, &event);
}

void Mouse::press(Qt::MouseButton button) {
    send(QEvent::MouseButtonPress, button, button);
}

void Mouse::doublePress() {
    send(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton);
}

void Mouse::release(Qt::MouseButton button) {
    send(QEvent::MouseButtonRelease, button, Qt::NoButton);
}

void Mouse::moveTo(QPoint point) {
    m_point = point;
    send(QEvent::MouseMove, Qt::NoButton, m_held);
}

void Mouse::click() {
    press();
    release();
}

}  // namespace play
