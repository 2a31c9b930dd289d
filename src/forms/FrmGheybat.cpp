#include "FrmGheybat.h"

namespace forms {

const PageLayout& frmGheybat() {
    static const PageLayout layout = {
        "TFrmGheybat",
        "معرفي غيبت",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد غيبت وارد گردد "),
            nameColumn("نام غيبت", 200, " نام غيبت وارد گردد"),
            numberColumn("Time_mah", "ساعت كاركرد", 82, " ساعت مبناي محاسبه {D} وارد گردد "),
            numberColumn("Zarib", "ضريب", 41, " رقم ضريب  {D} وارد گردد "),
            numberColumn("Per_friday", "سهم جمعه", 74, " سقف ساعت  {D} جهت تعيين مبلغ سهم جمعه وارد گردد "),
            textColumn("Gbase", "مبنا", kDefaultWidth, " مبناي {D} مشخص گردد "),
            markColumn("Bimeh", "بيمه", 36,
                       " در صورتيكه {D} از مبلغ مشمول بيمه كسر نمي گردد علامت دار گردد "),
            markColumn("Malyat", "ماليات", 48,
                       " در صورتيكه {D} از مبلغ مشمول ماليات كسر نمي گردد علامت دار گردد "),
            markColumn("Zero", "صفر شود", 57,
                       " در صورتيکه ساعت  {D} در ماه بعد با مقدار اوليه صفر باشد علامت دار گردد "),
            markColumn("Single", "نمايش مجزا", 73,
                       " در صورتيکه {D} به شکل مجزا در فيش حقوق نمايش داده شود علامت دار گردد"),
            markColumn("Not_padash", "تاثير پاداش", 67,
                       " در صورتيکه ساعت  {D} از کارکرد پاداش ساليانه کسر مي گرددعلامت دار گردد "),
            markColumn("Sub_not_sa", "كسر مولفه ها", 84,
                       " در صورتيکه مبلغ {D} مستقيما از مولفه هاي حقوق کسر گردد علامت دار گردد"),
            markColumn("E_rial", "كسر ريالي", 67,
                       " در صورتيکه  {D} فقط به شکل ريالي از حقوق کسر گرددعلامت دار گردد "),
            markColumn("hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
        }};
    return layout;
}

}  // namespace forms
