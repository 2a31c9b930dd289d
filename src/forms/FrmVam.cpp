#include "FrmVam.h"

namespace forms {

const PageLayout& frmVam() {
    static const PageLayout layout = {
        "TFrmVam",
        "فرم وام",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد وام وارد گردد"),
            nameColumn("نام وام", 200, " نام وام وارد گردد"),
            untotalled(numberColumn("Fieldlen", "طول", 29, " حداکثر ارقام {D} به عنوان طول وارد گردد ")),
            markColumn("Not_use", "عدم محاسبه", 76,
                       " در صورتيکه قسط  {D} در ماه جاري کسر نگردد علامت دار گردد "),
            markColumn(
                "Article", "صدور سند", kDefaultWidth,
                " در صورتيکه براي تهيه سند حسابداري {D} از تفصيلي کارکنان استفاده شود علامت دار گردد "),
            markColumn("Kasr", "اضافه", 38,
                       " در صورتيکه مبلغ قسط {D} به مانده وام اضافه گردد علامت دار گردد "),
            markColumn("negative", "منفي", 37,
                       "  در صورتيکه قسط{D} در صورت منفي شدن دريافتي افراد نيز کسر گردد علامت دار گردد  "),
            numberColumn("per_g", "سهم پرسنل", 73, " درصد سهم کارکنان از بابت قسط {D} وارد گردد "),
            numberColumn("per_k", "سهم كارفرما", 75, " درصد سهم کارفرما از بابت قسط {D} وارد گردد "),
            markColumn("Malyat", "ماليات", 42, " در صورت ماليات پذير بودن سهم کارفرما {D} علامت دار گردد "),
            markColumn("Notax", "معافيت مالياتي", 88,
                       " در صورتيکه معافيت مالياتي به قسط {D} تعلق مي گيرد علامت دار گردد"),
            markColumn("No_vam", "حوزه محاسبه", 82, " مبناي محاسبه تعيين قسط {D} وارد گردد", "Perc_vam",
                       "        حوزه محاسبه        "),
            markColumn("Withwork", "با كاركرد", 51,
                       " در صورتيکه قسط {D} فقط با داشتن کارکرد کارکنان کسر شود علامت دار گردد"),
            textColumn("FileName", "نام فايل", 100, " نام فايل فلاپي اقساط {D} وارد گردد"),
            markColumn("Hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
            markColumn("DayWorked", "روز كاركرد", kDefaultWidth,
                       " در صورت محاسبه مبلغ  {D} به نسبت كاركرد علامت دار گردد "),
        }};
    return layout;
}

}  // namespace forms
