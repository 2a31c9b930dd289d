#include "FrmNobat.h"

namespace forms {

const PageLayout& frmNobat() {
    static const PageLayout layout = {
        "TFrmNobat",
        "معرفي نوبت کاري",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد نوبت کاري وارد گردد"),
            nameColumn("نام نوبت کاري", 200, " نام نوبت کاري وارد گردد"),
            numberColumn("Time_mah", "ساعت كاركرد", 83, " ساعت مبناي محاسبه {D} وارد گردد "),
            numberColumn("Zarib", "ضريب", 48, " رقم ضريب  {D} وارد گردد "),
            markColumn("Malyat", "ماليات", 39, " در صورت ماليات پذير بودن {D} علامت دار گردد "),
            markColumn("Bimeh", "بيمه", 29, " در صورت بيمه پذير بودن {D} علامت دار گردد "),
            markColumn("No_mal", "معافيت مالياتي", 90,
                       " در صورتيکه به  {D} معافيت مالياتي تعلق مي گيرد علامت دار گردد"),
            markColumn("Zero", "صفر شود", kDefaultWidth,
                       " در صورتيکه ساعت  {D} در ماه بعد با مقدار اوليه صفر باشد علامت دار گردد "),
            markColumn("Single", "نمايش مجزا", 77,
                       " در صورتيکه {D} به شکل مجزا در فيش حقوق نمايش داده شود علامت دار گردد"),
            markColumn("Isconv", "تاثير غيبت", kDefaultWidth,
                       " در صورتيکه محاسبه {D} بعد از کسر ساعات غيبت انجام شود علامت دار گردد"),
            markColumn("hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
            markColumn("MabnaEazfeh", "مبناي اضافه كار", kDefaultWidth, {}),
        }};
    return layout;
}

}  // namespace forms
