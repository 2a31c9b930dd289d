#include "FrmPadash.h"

namespace forms {

const PageLayout& frmPadash() {
    static const PageLayout layout = {
        "TFrmPadash",
        "معرفي پاداش",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد پاداش وارد گردد"),
            nameColumn("نام پاداش", 200, "نام پاداش وارد گردد"),
            numberColumn("Percent", "درصد ماليات", 71, " درصد ماليات {D} وارد گردد "),
            markColumn("Malyat", "ماليات", 41, " در صورت ماليات پذير بودن {D} علامت دار گردد "),
            markColumn("Bimeh", "بيمه", 33, " در صورت بيمه پذير بودن {D} علامت دار گردد "),
            numberColumn("Max", "سقف پرداختي", 86, " سقف پرداختي  {D} وارد گردد "),
            numberColumn("Exempt", "مبلغ معاف", 60, " مبلغ معافيت مالياتي {D} وارد گردد "),
            centred(
                textColumn("Totalexp", "روش معافيت", kDefaultWidth, " روش  معافيت مالياتي{D} مشخص گردد ")),
            numberColumn("Mah", "ماه پرداختي", 70, " تعداد ماه پرداختي مبناي {D} وارد گردد "),
            textColumn("Desbefor", "بدهكاري قبلي", 90,
                       " در صورتيکه بابت  {D} پرداخت مبلغي از قبل وجود داشته انتخاب گردد "),
            numberColumn("Zarib", "ضريب", kDefaultWidth,
                         " در صورتيکه ضريبي مازاد براي {D} وجود دارد وارد گردد "),
            numberColumn("Fix", "مبلغ ثابت", kDefaultWidth,
                         " در صورتيکه مبلغي مازاد براي {D} وجود دارد وارد گردد "),
            numberColumn("Days", "روز اضافه", 54, " تعداد روزهاي اضافه شونده تا پايان سال  {D} وارد گردد "),
            numberColumn("Year", "روزهاي سال", 73, " مبناي روزهاي ساليانه جهت محاسبه  {D} وارد گردد"),
            numberColumn("Pernpay", "درصد غير نقدي", 86,
                         " در صورتيکه به  {D} درصد غير نقدي تعلق مي گيردوارد گردد"),
            markColumn("Fgoz", "نمايش فيش", 71, " در صورتيکه {D}  در فيش حقوق نمايش داده شود علامت دار گردد"),
            markColumn("Lastpay", "پرداخت شده قبلي", 74,
                       " در صورتيکه {D}  در ماه جاري جداگانه پرداخت شده است علامت دار گردد"),
            numberColumn("No_day", "بخشش غيبت", 81, " تعداد روزهاي بخشش غيبت  {D}  وارد گردد"),
            markColumn("Zero", "صفر شود", 55,
                       " در صورتيکه  {D} در ماه بعد با مقدار اوليه صفر باشد علامت دار گردد "),
            markColumn("hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
        },
        {
            {Kind::RaisedPanel, "plMozd", {}, Align::None, {0, 0, 283, 160}, {}, {}},
            {Kind::Grid, "DBGrid2", "plMozd", Align::Client, {}, {}, {}},
        }};
    return layout;
}

}  // namespace forms
