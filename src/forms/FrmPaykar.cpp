#include "FrmPaykar.h"

namespace forms {

const PageLayout& frmPaykar() {
    static const PageLayout layout = {
        "TFrmPaykar",
        "مزاياي غير مستمر",
        "dbgKar",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد مزاياي غير مستمر وارد شود"),
            nameColumn("نام مزاياي غير مستمر", 330, " نام مزاياي غير مستمر وارد شود"),
            untotalled(numberColumn("Fieldlen", "طول", 39, " حداکثر ارقام {D} به عنوان طول وارد گردد ")),
            markColumn("Malyat", "ماليات", 41, " در صورت ماليات پذير بودن {D} علامت دار گردد "),
            markColumn("Bimeh", "بيمه", 29, " در صورت بيمه پذير بودن {D} علامت دار گردد "),
            markColumn("Kasry", "كسر", 40, " در صورتيکه  {D} از دريافتي کسر مي گردد علامت دار شود "),
            markColumn("Add", "اضافه", 35, " در صورتيکه  {D} به دريافتي اضافه مي گردد علامت دار گردد "),
            markColumn("Zero", "مبلغ صفر", 58,
                       " در صورتيکه مبلغ  {D} در ماه بعد با مقدار اوليه صفر منتقل شود علامت دار گردد "),
            markColumn("Article", "صدورسند", 58,
                       " در صورتيکه براي تهيه سند حسابداري {D} از تفصيلي کارکنان استفاده شود علامت دار گردد"),
            markColumn("No_mal", "معافيت مالياتي", 89,
                       " در صورتيکه به{D} معافيت مالياتي تعلق مي گيرد علامت دار گردد ", "Perc_mal"),
            markColumn("Hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
            markColumn("naghdi", "غير نقدي", kDefaultWidth, {}),
        }};
    return layout;
}

}  // namespace forms
