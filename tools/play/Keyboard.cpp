#include "Keyboard.h"

#include <QMap>
#include <QTest>

#include "Script.h"

namespace play {
namespace {

struct NamedKey {
    int key = 0;
    QString text;
};

const QMap<QString, NamedKey>& namedKeys() {
    static const QMap<QString, NamedKey> keys = {
        {"enter", {Qt::Key_Return, "\r"}},
        {"return", {Qt::Key_Return, "\r"}},
        {"escape", {Qt::Key_Escape, "\x1b"}},
        {"esc", {Qt::Key_Escape, "\x1b"}},
        {"space", {Qt::Key_Space, " "}},
        {"tab", {Qt::Key_Tab, "\t"}},
        {"backspace", {Qt::Key_Backspace, "\b"}},
        {"delete", {Qt::Key_Delete, "\x7f"}},
        {"del", {Qt::Key_Delete, "\x7f"}},
        {"insert", {Qt::Key_Insert, {}}},
        {"ins", {Qt::Key_Insert, {}}},
        {"home", {Qt::Key_Home, {}}},
        {"end", {Qt::Key_End, {}}},
        {"pageup", {Qt::Key_PageUp, {}}},
        {"pagedown", {Qt::Key_PageDown, {}}},
        {"pgup", {Qt::Key_PageUp, {}}},
        {"pgdn", {Qt::Key_PageDown, {}}},
        {"up", {Qt::Key_Up, {}}},
        {"down", {Qt::Key_Down, {}}},
        {"left", {Qt::Key_Left, {}}},
        {"right", {Qt::Key_Right, {}}},
        {"menu", {Qt::Key_Menu, {}}},
    };
    return keys;
}

const QMap<QString, Qt::KeyboardModifier>& modifierNames() {
    static const QMap<QString, Qt::KeyboardModifier> names = {
        {"ctrl", Qt::ControlModifier}, {"shift", Qt::ShiftModifier}, {"alt", Qt::AltModifier}};
    return names;
}

NamedKey keyOf(const QString& name) {
    const QString lower = name.toLower();
    if (namedKeys().contains(lower))
        return namedKeys().value(lower);
    bool number = false;
    const int function = lower.startsWith(u'f') ? lower.mid(1).toInt(&number) : 0;
    if (number && function >= 1 && function <= 35)
        return {Qt::Key_F1 + function - 1, {}};
    if (name.size() == 1)
        return {name[0].toUpper().unicode(), name};
    throw Failure{QStringLiteral("there is no key ") + name};
}

}  // namespace

Keyboard::Stroke Keyboard::stroke(const QString& name) {
    Stroke stroke;
    QString rest = name;
    if (const qsizetype star = rest.lastIndexOf(u'*'); star > 0) {
        bool number = false;
        stroke.times = rest.mid(star + 1).toInt(&number);
        if (!number || stroke.times < 1)
            throw Failure{QStringLiteral("there is no key ") + name};
        rest.truncate(star);
    }
    for (qsizetype plus = rest.indexOf(u'+'); plus > 0; plus = rest.indexOf(u'+')) {
        const QString modifier = rest.left(plus).toLower();
        if (!modifierNames().contains(modifier))
            throw Failure{QStringLiteral("there is no key ") + name};
        stroke.modifiers |= modifierNames().value(modifier);
        rest.remove(0, plus + 1);
    }
    const NamedKey key = keyOf(rest);
    stroke.key = key.key;
    if (!(stroke.modifiers & (Qt::ControlModifier | Qt::AltModifier)))
        stroke.text = key.text;
    if (stroke.key == Qt::Key_Tab && (stroke.modifiers & Qt::ShiftModifier))
        stroke.key = Qt::Key_Backtab;
    return stroke;
}

void Keyboard::press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QTest::sendKeyEvent(QTest::Click, widget, static_cast<Qt::Key>(key), text, modifiers);
}

QStringList Keyboard::characters(const QString& text) {
    QStringList characters;
    for (qsizetype i = 0; i < text.size(); i += characters.last().size())
        characters.append(text.mid(i, text[i].isHighSurrogate() ? 2 : 1));
    return characters;
}

void Keyboard::type(QWidget* widget, const QString& character) {
    if (character == QLatin1String("\n") || character == QLatin1String("\t")) {
        const NamedKey named = namedKeys().value(character == QLatin1String("\n") ? "enter" : "tab");
        press(widget, named.key, {}, named.text);
        return;
    }
    const QChar first = character[0];
    const bool shifted = first.unicode() < 0x80 && first.isUpper();
    press(widget, first.toUpper().unicode(), shifted ? Qt::ShiftModifier : Qt::NoModifier, character);
}

}  // namespace play
