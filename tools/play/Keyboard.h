// Keys by their names, and the events of one key.
#pragma once

#include <QStringList>

class QWidget;

namespace play {

class Keyboard {
public:
    // A key as the scenario names it.
    struct Stroke {
        int key = 0;
        Qt::KeyboardModifiers modifiers;
        QString text;
        int times = 1;
    };

    // "Ctrl+Delete", "Down*3", "a". Throws Failure for an unknown key.
    static Stroke stroke(const QString& name);
    // Sends press and release to the widget; nothing is checked.
    static void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text);
    // A text as its single characters, each what one key gives.
    static QStringList characters(const QString& text);
    static void type(QWidget* widget, const QString& character);
};

}  // namespace play
