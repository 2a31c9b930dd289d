// One mouse: events reach the widget under the point as the platform would send them.
#pragma once

#include <QEvent>
#include <QPoint>
#include <QPointer>
#include <QWidget>

namespace play {

class Mouse {
public:
    // At a point of the widget, or of the child that lies there.
    Mouse(QWidget* widget, QPoint point);

    void press(Qt::MouseButton button = Qt::LeftButton);
    void moveTo(QPoint point);  // a point of the widget the mouse was made with
    void release(Qt::MouseButton button = Qt::LeftButton);
    void doublePress();
    void click();

private:
    void send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held);

    QPointer<QWidget> m_widget;
    QPointer<QWidget> m_target;
    QPoint m_point;
    Qt::MouseButtons m_held;
};

}  // namespace play
