#include "FrmKhedmat.h"

namespace forms {

const PageLayout& frmKhedmat() {
    static const PageLayout layout = {
        "TFrmKhedmat",
        "معرفي خريد خدمت",
        "DBGrid1",
        "BitBtn1",
        "تعريف مجدد",
        {
            codeColumn("كد", 25, " کد مولفه مبناي خريد خدمت "),
            readOnly(nameColumn("عناوين مبناي خريد خدمت", 430, " نام مولفه مبناي خريد خدمت ")),
            markColumn("Is_pay", "تعلق پذيري", 75,
                       " در صورتيکه {D} به خريد خدمت تعلق مي گيرد علامت دار گردد "),
            markColumn("Malyat", "ماليات", 41,
                       " در صورتيکه در خريد خدمت {D} ماليات پذير است علامت دار گردد "),
            markColumn("Bimeh", "بيمه", 32, " در صورتيکه در خريد خدمت {D} بيمه پذير است علامت دار گردد "),
            numberColumn("Year", "روزهاي سال", 73, " مقدار کارکرد ساليانه جهت محاسبه خريد خدمت وارد گردد "),
            numberColumn("Belong", "روز پرداختي", 70,
                         " حد اکثر روز پرداختي در سال بابت محاسبه خريد خدمت وارد گردد "),
            markColumn("hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
            markColumn("fgoz", "نمايش فيش", kDefaultWidth, " درصورت نمايش در فيش حقوق علامت دار گردد "),
            numberColumn("Percent", "درصد ماليات", kDefaultWidth, {}),
        }};
    return layout;
}

}  // namespace forms
