#include "FrmSayer.h"

namespace forms {

const PageLayout& frmSayer() {
    static const PageLayout layout = {
        "TFrmSayer",
        "معرفي کارانه",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد کارانه وارد گردد"),
            nameColumn("نام کارانه", 511, " نام کارانه وارد گردد"),
            markColumn("Malyat", "ماليات", 40, " در صورت ماليات پذير بودن {D} علامت دار گردد "),
            markColumn("Bimeh", "بيمه", 30, " در صورت بيمه پذير بودن {D} علامت دار گردد "),
            numberColumn("Perkar", "درصد ماليات", 71, " درصد ماليات {D} وارد گردد "),
            numberColumn("Fixk", "مبلغ ثابت", 74, " مبلغ پايه  {D} وارد گردد "),
            markColumn("Hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
        }};
    return layout;
}

}  // namespace forms
