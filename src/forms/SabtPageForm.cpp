#include "SabtPageForm.h"

namespace forms {
namespace {

// A tab with a combo on a bar of its own, and the panel below in which its pages stand.
SheetLayout comboSheet(const QString& name, const QString& caption, const QString& bar, const QString& combo,
                       int comboWidth, const QString& panel, const QStringList& items, int index) {
    return {name,
            caption,
            {{Kind::RaisedPanel, bar, {}, Align::Top, {0, 0, 768, 32}, {}, {}},
             {Kind::Combo, combo, bar, Align::Right, {6, 4, comboWidth, 24}, {}, {}},
             {Kind::Panel, panel, {}, Align::Client, {}, {}, {}}},
            panel,
            combo,
            items,
            index};
}

SheetLayout plainSheet(const QString& name, const QString& caption) {
    return {name, caption, {}, {}, {}, {}, -1};
}

}  // namespace

const FormLayout& sabtPage() {
    static const FormLayout layout = {
        "TSabtPageForm",
        "ثبت اطلاعات پايه حقوق و دستمزد",
        {776, 348},
        {
            {Kind::CaptionBar,
             "Caption_Panel",
             {},
             Align::Top,
             {0, 0, 776, 24},
             "              ثبت اطلاعات پايه حقوق و دستمزد",
             {}},
            {Kind::Image, "imgAccess", "Caption_Panel", Align::Left, {0, 0, 32, 22}, {}, {}},
            {Kind::Image, "imgNoAccess", "Caption_Panel", Align::Left, {0, 0, 32, 22}, {}, {}},
            {Kind::Shape, "Min_Shape", "Caption_Panel", Align::None, {720, 1, 21, 21}, {}, {}},
            {Kind::Shape, "Close_Shape", "Caption_Panel", Align::None, {745, 1, 21, 21}, {}, {}},
            {Kind::MinimizeButton,
             "sb_Minimized",
             "Caption_Panel",
             Align::None,
             {721, 2, 20, 20},
             {},
             "كوچك كردن فرم"},
            {Kind::CloseButton, "sb_Closed", "Caption_Panel", Align::None, {746, 2, 20, 20}, {}, "بستن فرم"},
        }};
    return layout;
}

const QList<SheetLayout>& sabtSheets() {
    static const QList<SheetLayout> sheets = {
        comboSheet(
            "ts_MaliyatInfo", "اطلاعات مالياتي", "Panel5", "cmbMaliyatinfo", 166, "plMaliyatInfo",
            {"نوع شخص", " شخصيت  حقوقي", "وضعيت کارمند", "موضوع معافيت", "ساير معافيت ها", "مليت", "نوع بيمه",
             "نحوه پرداخت", "نام و کد بانک", "نوع استخدام", "نام و کد کشور", "وضعيت محل خدمت", "نوع قرارداد",
             "نوع پرداختي", "مسکن", "وسيله نقليه", "ارز", "مدرك تحصيلي"},
            -1),
        comboSheet("ts_Edari", "اطلاعات اداري  ", "Panel4", "cmbEdari", 140, "plEdari",
                   {"عنوان سازماني", "رشته تحصيلي", "رشته اداري", "واحد سازماني", "رده سازماني", "سمت",
                    "گروه(پايه)", "محل خدمت", "تحصيلات"},
                   -1),
        comboSheet("ts_Mul", "ضرايب        ", "Panel2", "cmbZarayeb", 140, "plClient", {}, 0),
        plainSheet("ts_Vam", "وامها           "),
        plainSheet("ts_Bank", "بانک           "),
        comboSheet("ts_Marakez", "مراكز هزينه      ", "Panel3", "cmbMarakez", 140, "plMarakez", {}, 1),
        plainSheet("ts_Bimeh", "بيمه          "),
        plainSheet("ts_Malyat", "ماليات        "),
        plainSheet("ts_NoPay", "مزاياي غير مستمر "),
        plainSheet("ts_Payment", "حقوق و مزايا "),
    };
    return sheets;
}

}  // namespace forms
