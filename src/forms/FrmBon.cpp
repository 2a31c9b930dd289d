#include "FrmBon.h"

namespace forms {

const PageLayout& frmBon() {
    static const PageLayout layout = {
        "TFrmBon",
        "معرفي بن و خواربار",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            codeColumn("كد", 25, " کد بن خواربار وارد گردد"),
            nameColumn("نام بن", 480, " نام بن خواربار وارد گردد"),
            numberColumn("Codetah", "مبلغ متاهل", 69, "  مبلغ {D}  کارکنان متاهل وارد گردد "),
            numberColumn("Codemoj", "مبلغ مجرد", kDefaultWidth, " مبلغ  {D}  کارکنان مجرد وارد گردد "),
            markColumn("Karkard", "كاركرد", 42,
                       " در صورتيکه مبلغ {D}  براساس کارکرد تعيين شودعلامت دار گردد  "),
            markColumn("Article", "صدور سند", kDefaultWidth,
                       " در صورتيکه براي تهيه سند حسابداري {D}  از تفصيلي افراد استفاده شود علامت دار گردد"),
            markColumn("hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
        }};
    return layout;
}

}  // namespace forms
