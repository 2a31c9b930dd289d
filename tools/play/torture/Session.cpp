#include "Session.h"

#include <QList>
#include <QStringList>
#include <random>

namespace play {
namespace {

const QStringList kTabs = {"tab ts_Payment", "tab ts_NoPay",      "tab ts_Malyat", "tab ts_Bimeh",
                           "tab ts_Bank",    "tab ts_Vam",        "tab ts_Mul",    "tab ts_Marakez",
                           "tab ts_Edari",   "tab ts_MaliyatInfo"};
const QStringList kCombos = {"cmbZarayeb 0", "cmbZarayeb 1",     "cmbZarayeb 2",     "cmbZarayeb 3",
                             "cmbZarayeb 5", "cmbZarayeb 6",     "cmbZarayeb 9",     "cmbMarakez 0",
                             "cmbMarakez 1", "cmbEdari 0",       "cmbEdari 4",       "cmbEdari 6",
                             "cmbEdari 8",   "cmbMaliyatinfo 0", "cmbMaliyatinfo 3", "cmbMaliyatinfo 17"};
const QStringList kKeys = {"Down",      "Down*3",      "Up",        "Up*3",   "Enter",        "Enter*3",
                           "Insert",    "Delete",      "Backspace", "Escape", "Escape*3",     "Space",
                           "Tab",       "Shift+Tab",   "PageDown",  "PageUp", "Home",         "End",
                           "Ctrl+Home", "Ctrl+End",    "F2",        "F1",     "Ctrl+Delete",  "Ctrl+F",
                           "Ctrl+L",    "Ctrl+P",      "Ctrl+G",    "Alt+G",  "Ctrl+C",       "Ctrl+V",
                           "Menu",      "Ctrl+Insert", "Left",      "Right",  "Shift+Insert", "Ctrl"};
const QStringList kTexts = {
    "نام تازه", "12",         "0",     "99",  "1.5",
    "-3",       "2147483647", "A.TXT", "acc", "نام بسيار درازي که در هيچ ستوني جا نمي گيرد و بايد رد شود",
    "a'b",      "9900001"};
const QStringList kButtons = {"OkBtn",     "BitBtn1",      "CancelBtn",   "sb_Closed",   "rSabet",
                              "rMotagher", "chSum",        "BBtnYes",     "BBtnNo",      "BBtnOK1",
                              "OkBitBtn",  "CancelBitBtn", "FindNextBtn", "sb_Minimized"};
const QStringList kEntries = {"حذف",
                              "جستجو ...",
                              "پالايش گزارش ...",
                              "بازگشت از پالايش",
                              "\"ارسال به\" HTML",
                              "\"ارسال به\" Excel",
                              "\"ارسال به\" Word",
                              "\"ارسال به\" \"Clipboard (محيط ديگر ...)\"",
                              "Dbf->Dos",
                              "Dbf->Win",
                              "تنظيم عرض ستونها",
                              "ثبت وضعيت ستونها",
                              "بازگشت به وضعيت اوليه ستونها",
                              "چاپ ...",
                              "مشخصات گزارش ...",
                              "ساختار جديد",
                              "حذف رديف",
                              "بازگشت جدول حذف شده",
                              "كپي به ماه بعد"};
const QStringList kAnswers = {"hold", "hold", "hold", "yes", "yes", "no", "ok", "cancel"};

class Dice {
public:
    explicit Dice(quint32 seed) : m_source(seed) {}
    // From 0 to below `sides`; the library's distributions differ from machine to machine.
    int roll(int sides) { return static_cast<int>(m_source() % static_cast<quint32>(sides)); }
    const QString& of(const QStringList& choices) { return choices[roll(static_cast<int>(choices.size()))]; }

private:
    std::mt19937 m_source;
};

QString quoted(const QString& text) {
    return u'"' + text + u'"';
}

QString cell(Dice& dice) {
    return QStringLiteral(" . %1 %2").arg(1 + dice.roll(6)).arg(dice.roll(9));
}

QString month(Dice& dice) {
    const int to = dice.roll(2) + 6;
    return QStringLiteral(
               "sql\nupdate options set payment=replace(payment, 'Month_Curent=%1;', "
               "'Month_Curent=%2;')\n\nshow")
        .arg(13 - to)
        .arg(to);
}

QString fault(Dice& dice) {
    return QStringLiteral("fault %1 \"Violation of PRIMARY KEY constraint\"").arg(1 + dice.roll(8));
}

QString menuEntry(Dice& dice) {
    const QString& entry = dice.of(kEntries);
    return "menu " + (entry.startsWith(u'"') ? entry : quoted(entry));
}

QString ofTheHost(Dice& dice) {
    switch (dice.roll(8)) {
        case 0:
        case 1:
            return QStringLiteral("release");
        case 2:
            return QStringLiteral("close now");
        case 3:
            return month(dice);
        case 4:
            return QStringLiteral("release\nshow");
        case 5:
            return QStringLiteral("close now\nshow");
        default:
            return QStringLiteral("show");
    }
}

QString ofTheOperator(Dice& dice) {
    switch (dice.roll(20)) {
        case 0:
            return dice.of(kTabs);
        case 1:
            return "combo " + dice.of(kCombos);
        case 2:
        case 3:
        case 4:
            return "cell" + cell(dice);
        case 5:
        case 6:
            return "dblclick" + cell(dice);
        case 7:
        case 8:
        case 9:
            return "type " + quoted(dice.of(kTexts));
        case 10:
        case 11:
        case 12:
        case 13:
            return "key " + dice.of(kKeys);
        case 14:
        case 15:
            return menuEntry(dice);
        case 16:
            return "click " + dice.of(kButtons);
        case 17:
            return QStringLiteral("title . %1").arg(dice.roll(6));
        case 18:
            return QStringLiteral("clipboard ") + quoted(dice.of(kTexts));
        default:
            return QStringLiteral("wait 15");
    }
}

QString prepared(Dice& dice) {
    switch (dice.roll(6)) {
        case 0:
        case 1:
        case 2:
            return "answer " + dice.of(kAnswers);
        case 3:
            return dice.roll(2) ? QStringLiteral("pick cancel") : QStringLiteral("file OUT A.DBF");
        case 4:
            return fault(dice);
        default:
            return QStringLiteral("search \"ا\"");
    }
}

// Brings a page to the front and its grid under the operator's hands.
QString approach(Dice& dice) {
    return dice.of(kTabs) + QStringLiteral("\ncombo ") + dice.of(kCombos) + QStringLiteral("\ncell . 1 1");
}

const char kEnd[] =
    "fault off\nrelease\nwait 30\nrelease\nwait 30\n"
    "expect window no\nexpect form none\nexpect no other window\n"
    "show\nwait 30\nexpect window yes\nrelease\nwait 30\nexpect window no\nexpect no other window\n";

}  // namespace

Session randomSession(quint32 seed, int lines) {
    Dice dice(seed);
    QStringList session = {"company demo", "show", approach(dice)};
    for (int line = 0; line < lines; ++line) {
        const int kind = dice.roll(20);
        // Without a window little happens.
        const bool gone =
            session.last() == QLatin1String("release") || session.last() == QLatin1String("close now");
        session += gone && kind < 15 ? QStringLiteral("show\n") + approach(dice)
                   : kind < 3        ? ofTheHost(dice)
                   : kind < 6        ? prepared(dice)
                   : kind == 6       ? approach(dice)
                                     : ofTheOperator(dice);
    }
    Session result;
    result.text = session.join(u'\n') + u'\n';
    result.firstCheck = static_cast<int>(result.text.count(u'\n')) + 1;
    result.text += QLatin1String(kEnd);
    return result;
}

}  // namespace play
