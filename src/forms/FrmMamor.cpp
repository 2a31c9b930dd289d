#include "FrmMamor.h"

namespace forms {

const PageLayout& frmMamor() {
    static const PageLayout layout = {
        "TFrmMamor",
        "معرفي ماموريت",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد ماموريت وارد گردد"),
            nameColumn("نام ماموريت", 200, " نام ماموريت وارد گردد"),
            markColumn("Malyat", "ماليات", 39, " در صورت ماليات پذير بودن {D} علامت دار گردد "),
            markColumn("Bimeh", "بيمه", 30, " در صورت بيمه پذير بودن {D} علامت دار گردد "),
            numberColumn("Percent", "درصدماليات", 70, " رقم درصد ماليات {D} وارد گردد "),
            markColumn("No_mal", "معافيت مالياتي", 93,
                       " در صورتيکه به {D} معافيت مالياتي تعلق مي گيرد علامت دار گردد "),
            numberColumn("Sabet", "مبلغ ثابت", kDefaultWidth,
                         " در صورتيکه به {D} مبلغ ثابت اضافه مي گردد وارد گردد "),
            numberColumn("Roz", "روز", kDefaultWidth,
                         " در صورتيکه {D} بر مبناي روز مي باشد مقدار آن وارد گردد "),
            numberColumn("Zarib", "ضريب", kDefaultWidth,
                         " در صورت داشتن ضريب براي  {D} مقدار آن را وارد كنيد "),
            numberColumn("MinMab", "حداقل مبلغ", kDefaultWidth,
                         " در صورت داشتن حداقل مبلغ براي  {D} مقدار آن را وارد كنيد "),
            markColumn("Zero", "صفر شود", 59,
                       " در صورتيکه مبلغ {D} در ماه بعد با مقدار اوليه صفر باشد علامت دار گردد "),
            markColumn("hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
        }};
    return layout;
}

}  // namespace forms
