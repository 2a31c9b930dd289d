#include "FrmBomr.h"

namespace forms {

const PageLayout& frmBomr() {
    static const PageLayout layout = {
        "TFrmBomr",
        "معرفي بيمه عمر",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد بيمه  وارد گردد"),
            nameColumn("نام بيمه عمر", 300, " نام بيمه  معرفي گردد"),
            numberColumn("Major", "سهم كارفرما", 79, "  مبلغ سهم بيمه کارفرماي{D}  وارد گردد "),
            numberColumn("Employe", "سهم كارمند", 74, " مبلغ سهم بيمه کارمند {D}  وارد گردد "),
            markColumn("Zero", "صفر شود", 63,
                       " در صورتيکه مبلغ اوليه {D}  در ماه بعدي صفر شود علامت دار گردد "),
            markColumn("WithWork", "كاركرد", kDefaultWidth,
                       " در صورتيکه {D}  با كاركرد محاسبه ميشود علامت دار گردد "),
            markColumn("hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
            markColumn("Moaf", "معافيت مالياتي", kDefaultWidth,
                       " در صورت معافيت مالياتي مبلغ {D} علامت دار گرد د "),
        }};
    return layout;
}

}  // namespace forms
