#include "FrmKharid.h"

namespace forms {

const PageLayout& frmKharid() {
    static const PageLayout layout = {
        "TFrmKharid",
        "معرفي خريد مرخصي",
        "DBGrid1",
        "BitBtn1",
        "تعريف مجدد",
        {
            codeColumn("كد", 25, " کد مولفه مبناي خريد مرخصي "),
            readOnly(nameColumn("شرح", 380, " نام مولفه مبناي خريد مرخصي ")),
            markColumn("Is_pay", "تعلق پذيري ", 65,
                       " در صورتيکه {D} به خريد مرخصي تعلق مي گيرد علامت دار گردد "),
            markColumn("Malyat", "ماليات", 40,
                       " در صورتيکه در خريد مرخصي {D} ماليات پذير است علامت دار گردد "),
            markColumn("Bimeh", "بيمه", 29, " در صورتيکه در خريد مرخصي {D} بيمه پذير است علامت دار گردد "),
            numberColumn("Time", "روز پرداختي", 70, " حد اکثر روز پرداختي براي خريد مرخصي وارد گردد "),
            numberColumn("Send", "روز انتقالي", 66, " حداکثر روزهاي  قابل انتقال از مانده مرخصي وارد گردد "),
            markColumn("Fgoz", "نمايش فيش", 72, " در صورت نمايش مبلغ خريد مرخصي در فيش حقوق علامت دار گردد "),
            markColumn("hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
            refusing("درصد ماليات معتبر نيست", numberColumn("Percent", "درصد ماليات", kDefaultWidth, {})),
        }};
    return layout;
}

}  // namespace forms
