#include "TextHelpers.h"

#include <QTime>

#include "CodePage.h"

namespace {

// Letters by their byte in Windows-1256, the code page of the suite's keyboards.
constexpr uchar kAlefMaksura = 0xEC;
constexpr uchar kYeh = 0xED;
constexpr uchar kKeheh = 0x98;
constexpr uchar kKaf = 0xDF;
constexpr uchar kDivision = 0xF7;
constexpr uchar kPeh = 0x81;
constexpr uchar kJeh = 0x8E;
constexpr QChar kKashida(0x0640);
constexpr QChar kBackspace(8);

QString paramMark(const QString& key) {
    return key.toUpper() + u'=';
}

}  // namespace

QChar Fix_Persian_Key(const data::HostContext& context, QChar key) {
    if (context.Keyboard == QLatin1String("WIN"))
        return key;
    uchar byte = data::codePageByte(key);
    if (byte == kAlefMaksura)
        byte = kYeh;
    else if (byte == kKeheh)
        byte = kKaf;
    if (context.Platform == QLatin1String("Windows NT")) {
        if (byte == kDivision)
            byte = kPeh;
        else if (byte == kPeh)
            byte = kJeh;
    }
    return byte == data::codePageByte(key) ? key : data::codePageCharacter(byte);
}

QString Strip_Blanks(const QString& text) {
    QString result = text;
    result.remove(u' ');
    result.remove(kKashida);
    return result;
}

QString Bare_Name(const QString& text) {
    QString name;
    for (const QChar character : text) {
        const QChar::Category category = character.category();
        if (character == kKashida || character.isSpace() || category == QChar::Other_Format ||
            category == QChar::Other_Control)
            continue;
        switch (const char16_t letter = character.unicode()) {
            case 0x06A9:  // keheh, as kaf
                name += QChar(0x0643);
                break;
            case 0x0649:  // alef maksura and Farsi yeh, as yeh
            case 0x06CC:
                name += QChar(0x064A);
                break;
            default:
                name += QChar(letter).toCaseFolded();
        }
    }
    return name;
}

bool Is_Key_Allowed(const QString& mode, QChar key) {
    return mode != QLatin1String("NUM") || (key >= u'0' && key <= u'9') || key == kBackspace;
}

QString Pad_Left(const QString& text, int width) {
    return Pad_Left_Char(text, u' ', width);
}

QString Pad_Left_Char(const QString& text, QChar character, int width) {
    return text.rightJustified(width, character, true);
}

QString Get_Param(const QString& text, const QString& key) {
    const QString upper = text.toUpper();
    const QString mark = paramMark(key);
    const qsizetype at = upper.indexOf(mark);
    if (at < 0)
        return {};
    const qsizetype begin = at + mark.size();
    const qsizetype end = upper.indexOf(u';', begin);
    return end < 0 ? upper.mid(begin) : upper.mid(begin, end - begin);
}

QString Set_Param(const QString& text, const QString& key, const QString& value) {
    const QString upper = text.toUpper();
    const QString mark = paramMark(key);
    const QString entry = value.toUpper() + u';';
    const qsizetype at = upper.indexOf(mark);
    if (at < 0)
        return upper + mark + entry;
    const qsizetype begin = at + mark.size();
    const qsizetype end = upper.indexOf(u';', begin);
    return upper.left(begin) + entry + (end < 0 ? QString() : upper.mid(end + 1));
}

QString Time_Stamp() {
    const int milliseconds = QTime::currentTime().msecsSinceStartOfDay();
    return QString::number(milliseconds / 1000) + QString::number(milliseconds % 1000 / 10);
}
