#include "FrmEzaf.h"

namespace forms {

const PageLayout& frmEzaf() {
    static const PageLayout layout = {
        "TFrmEzaf",
        "معرفي اضافه کاري",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد اضافه کاري وارد گردد"),
            nameColumn("نام اضافه کاري", 200, " نام اضافه کاري وارد گردد"),
            numberColumn("Time_mah", "كاركرد ماه", kDefaultWidth, " ساعت مبناي محاسبه {D} وارد گردد "),
            numberColumn("Zarib", "ضريب", 58, " رقم ضريب  {D} وارد گردد "),
            numberColumn("Per_time", "نسبت كل", kDefaultWidth,
                         " سقف ساعت  {D} بر مبناي درصد جهت تعيين ماليات به روش مقطوع وارد گردد "),
            markColumn("Malyat", "ماليات", 39, " در صورت ماليات پذير بودن {D} علامت دار گردد "),
            markColumn("Bimeh", "بيمه", 28, " در صورت بيمه پذير بودن {D} علامت دار گردد "),
            numberColumn("Percent", "درصد ماليات", 72, " رقم درصد ماليات {D} وارد گردد "),
            numberColumn("Tpercent", "درصد كل ماليات", 93,
                         " رقم درصد ماليات {D} وارد گردد (بدون معافيت مالياتي)"),
            numberColumn("Top_salary", "سقف معافيت", 80, " سقف معافيت مالياتي  {D} وارد گردد "),
            markColumn("Zero", "صفر شود", 60,
                       " در صورتيکه ساعت  {D} در ماه بعد با مقدار اوليه صفر باشد علامت دار گردد "),
            markColumn("No_mal", "معافيت مالياتي", 45,
                       " در صورتيکه به  {D} معافيت مالياتي تعلق مي گيرد علامت دار گردد", "perc_mal",
                       "        معافيت مالياتي        "),
            markColumn("Single", "نمايش مجزا", 74,
                       " در صورتيکه {D} به شکل مجزا در فيش حقوق نمايش داده شود علامت دار گردد"),
            numberColumn("Sabet", "مبلغ ثابت", kDefaultWidth,
                         " در صورتيکه {D} به شكل ساعتي ثابت محاسبه مي گرددمبلغ ساعتي آن وارد گردد"),
            numberColumn("MaxTime", "حداكثر ساعت", 81,
                         " در صورتيکه {D} داراي حداكثر ساعت پرداخت است وارد گردد"),
            markColumn("hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
            markColumn("MabnaEazfeh", "مبناي نوبت كاري", kDefaultWidth,
                       " در صورتيكه {D} بر مبناي نوبت كاري نيز مي باشد علامت دار گردد "),
        }};
    return layout;
}

}  // namespace forms
