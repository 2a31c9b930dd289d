#include "Frmbimeh.h"

namespace forms {
namespace {

// Which employees go into a file of the insurance disk.
const QStringList& fileRules() {
    static const QStringList rules = {"كليه كاركنان", "داراي شماره بيمه", "بدون شماره بيمه"};
    return rules;
}

const QStringList& trainingBases() {
    static const QStringList bases = {"مشمول بيمه", "حقوق ناخالص"};
    return bases;
}

PageColumn percentColumn(const QString& field, const QString& title, int width, const QString& hint) {
    PageColumn column = numberColumn(field, title, width, hint);
    column.grid.displayFormat = QStringLiteral("#0.##");
    return column;
}

PageColumn hidden(PageColumn column) {
    column.grid.visible = false;
    return column;
}

}  // namespace

const PageLayout& frmbimeh() {
    static const PageLayout layout = {
        QStringLiteral("TFrmbimeh"),
        QStringLiteral("معرفي مشخصات بيمه"),
        QStringLiteral("DBGrid1"),
        QStringLiteral("BitBtn1"),
        QStringLiteral("تاييد"),
        {
            codeColumn("كد", 25, " کد بيمه وارد گردد"),
            nameColumn("نام بيمه", 204, " نام بيمه وارد گردد"),
            percentColumn("Karfrma", "سهم كارفرما", 77, " درصد سهم بيمه کارفرماي {D}  وارد گردد "),
            percentColumn("Kargar", "سهم كارگر", kDefaultWidth, " درصد سهم بيمه کارگر {D}  وارد گردد "),
            percentColumn("Bikary", "سهم بيكاري", 73, " درصد سهم بيمه بيکاري {D}  وارد گردد "),
            percentColumn("Sandkar", "صندوق کارآموزي", 95, " درصد سهم بيمه صندوق کارآموزي {D}  وارد گردد "),
            numberColumn("Kol_biemh", "مشمول بيمه", 79, " مبلغ سقف مشمول بيمه {D} وارد گردد "),
            markColumn("Add", "اضافه", 38,
                       " درصورتيکه مبلغ حق بيمه  {D} در فيش حقوق درج مي گرددعلامت دار گردد "),
            hidden(markColumn("Royat", "رويت", kDefaultWidth,
                              " در صورتيکه مبلغ حق بيمه {D} جهت رويت در فيش استفاده شود علامت دار گردد ")),
            markColumn("Daycon", "دستمزد متغير", 78,
                       " در صورتيکه مبلغ دستمزد گزارش بيمه {D}  بر اساس کارکرد ماهيانه به شکل متغير تعيين مي "
                       "گردد علامت دار گردد   "),
            markColumn("NoTax", "معافيت مالياتي", 90,
                       " در صورتيکه مبلغ حق بيمه {D} بعنوان معافيت مالياتي از مشمول ماليات کسر مي گردد علامت "
                       "دار گردد"),
            textColumn("Bimfile1", "نام فايل كارفرما", 90,
                       " نام فايل کارفرما  {D} جهت ارسال فلاپي بيمه معرفي گرددبطور مثال (DSKKAR00.DBF)"),
            textColumn("Bimfile2", "نام فايل كارگر", 91,
                       " نام فايل کارگر {D} جهت ارسال فلاپي بيمه معرفي گرددبطور مثال (DSKWOR00.DBF)"),
            cycleColumn("Typerep1", "شرايط فايل كارفرما", 107, fileRules(),
                        " شرايط تهيه فلاپي بيمه   {D} تعيين گردد "),
            cycleColumn("Typerep2", "شرايط فايل كارگر", 100, fileRules(),
                        " شرايط تهيه فلاپي بيمه   {D} تعيين گردد "),
            cycleColumn("Basesand", "مبناي سهم كارآموزي", 122, trainingBases(),
                        " مبناي تعيين سهم صندوق کارآموزي {D} تعيين گردد "),
            numberColumn(
                "Tedad1", "حداكثر تعداد", 73,
                "  حد اکثر تعداد نفرات موسسه جهت استفاده معافيت موسسه از پرداخت حق بيمه معرفي گردد "),
            numberColumn("Tedad2", "نفر معاف", kDefaultWidth,
                         " تعداد نفرات تعيين معافيت حق بيمه معرفي گردد "),
            numberColumn("HardWork", "سخت-زيان آور", kDefaultWidth,
                         " درصد حق بيمه مشاغل سخت و زيان آور معرفي گردد "),
            numberColumn("NoTaxpercent", "درصد معافيت", kDefaultWidth,
                         " درصد حق بيمه مشمول معافيت مالياتي وارد گردد "),
            markColumn("Hazineh", "هزينه", kDefaultWidth, " در صورت هزينه اي بودن مبلغ {D} علامت دار گرد د "),
        }};
    return layout;
}

}  // namespace forms
