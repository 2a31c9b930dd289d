#include "Acts.h"

namespace play {
namespace {

// A page with a work copy: names, marks and numbers are changed, and confirmed.
Act confirm(const QString& page, const QStringList& tab) {
    return {"confirm " + page, QString(),
            tab + QStringList{"cell . 1 1", "type \"نام ديگر\"", "cell . 1 2", "key Space", "cell . 1 3",
                              "type \"5\"", "key Down", "key Up"},
            QStringLiteral("click BitBtn1"), true};
}

Act coefficient(const QString& page, int place) {
    return confirm(page, {"tab ts_Mul", QStringLiteral("combo cmbZarayeb %1").arg(place)});
}

// A purchase page whose rows are made from the salary items again.
Act remake(const QString& page, int place) {
    return {"remake " + page,
            QStringLiteral("update Paymozd set desk='نام ديگر' where codemah=' 7' and code_field=3"),
            {"tab ts_Mul", QStringLiteral("combo cmbZarayeb %1").arg(place), "cell . 1 2", "key Space",
             "key Down", "answer yes yes yes"},
            QStringLiteral("click BitBtn1")};
}

// A page whose rows are stored as they are left, and move up behind a deleted one.
Act deletion(const QString& page, int place) {
    return {"delete from " + page,
            QString(),
            {"tab ts_Mul", QStringLiteral("combo cmbZarayeb %1").arg(place), "cell . 1 1", "key Insert",
             "type \"رديف تازه\"", "key Up", "cell . 3 1", "answer yes yes yes"},
            QStringLiteral("key Ctrl+Delete")};
}

}  // namespace

const QList<Act>& acts() {
    static const QList<Act> all = {
        // The codes behind the deleted item go down, and the amounts of all employees follow.
        {"confirm salary",
         "update payroll set code_2=0 where codemah=' 7'",
         {"tab ts_Payment", "cell dbgMozd 2 1", "answer yes yes yes", "menu \"حذف\"", "cell dbgMozd 3 1",
          "type \"نام ديگر\"", "key Down"},
         "click OkBtn",
         true},
        {"carry into salary",
         "delete from Paymozd where codemah=' 7' and code_field>20",
         {"tab ts_Payment", "key Ctrl+M", "dblclick dbgRows 1 2", "dblclick dbgRows 3 2", "click OkBtn"},
         "click OkBtn",
         true},
        confirm("benefits", {"tab ts_NoPay"}),
        confirm("insurance", {"tab ts_Bimeh"}),
        confirm("loans", {"tab ts_Vam"}),
        coefficient("overtime", 0),
        coefficient("shifts", 1),
        coefficient("absence", 2),
        coefficient("bonus", 3),
        coefficient("trips", 4),
        remake("service", 5),
        remake("leave", 6),
        coefficient("life insurance", 7),
        deletion("groceries", 8),
        deletion("piecework", 9),
        {"delete a bank",
         "update person set code_bank=3 where code_bank=2",
         {"tab ts_Bank", "cell . 2 1", "answer yes yes yes"},
         "key Ctrl+Delete"},
        {"delete the tax table", {}, {"tab ts_Malyat"}, "click \"حذف جدول\""},
        {"bring the tax table back",
         {},
         {"tab ts_Malyat", "click \"حذف جدول\""},
         "menu \"بازگشت جدول حذف شده\""},
        {"delete from an administrative list",
         {},
         {"tab ts_Edari", "combo cmbEdari 6", "cell . 1 1", "key Insert", "type \"رديف تازه\"", "key Up",
          "cell . 13 1", "answer yes yes yes"},
         "key Ctrl+Delete"},
        {"remake a file layout",
         {},
         {"tab ts_Bank", "dblclick . 1 2", "cell . 2 1", "type \"عنوان ديگر\"", "key Down",
          "answer yes yes yes"},
         "menu \"ساختار جديد\""},
    };
    return all;
}

ActScenario scenarioOf(const Act& act, const QStringList& between, int times) {
    QString text = QStringLiteral("company demo\n");
    if (!act.stored.isEmpty())
        text += "sql\n" + act.stored + "\n\n";
    text += "show\n" + act.before.join(u'\n') + u'\n';
    for (const QString& line : between)
        text += line + u'\n';
    const int line = static_cast<int>(text.count(u'\n')) + 1;
    for (int i = 0; i < times; ++i)
        text += act.line + u'\n';
    return {text + "wait 1\n", line};
}

}  // namespace play
