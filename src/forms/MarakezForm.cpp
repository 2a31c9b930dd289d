#include "MarakezForm.h"

namespace forms {

const PageLayout& marakezForm() {
    static const PageLayout layout = {
        "TMarakezForm",
        "مراکز هزينه",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            textColumn("Tafsily2", "{L}", kDefaultWidth, " کد مرکز هزينه وارد گردد"),
            textColumn("NamHesab", " نام {L}", 200, " نام مرکز هزينه وارد گردد"),
            textColumn("Station", "کد بيمه مرکز", 100, " کد بيمه  {D} وارد گردد "),
            textColumn("KarGah", "نام کارگاه", 200, " نام کارگاه  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
            textColumn("Karfarma", "نام کارفرما", 200,
                       " نام کارفرما  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
            textColumn("Addres", "آدرس کارگاه", 200,
                       " آدرس کارگاه  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
            textColumn("Buzy", "نوع فعاليت", 200, " نوع فعاليت  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
            textColumn("Shobeh", "شعبه تامين اجتماعي", 100,
                       " شعبه تامين اجتماعي  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
        }};
    return layout;
}

}  // namespace forms
