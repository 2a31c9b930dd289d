#include "FrmTax.h"

namespace forms {
namespace {

const QString kAmount = QStringLiteral("###,###,###,##0.##");
const QString kTax = QStringLiteral("###,###,###,###");

PageColumn amountColumn(const QString& field, const QString& title, const QString& format,
                        const QString& hint) {
    PageColumn column = numberColumn(field, title, 100, hint);
    column.grid.displayFormat = format;
    return column;
}

}  // namespace

const PageLayout& frmTax() {
    static const PageLayout layout = {
        QStringLiteral("TFrmTax"),
        QStringLiteral("جدول ماليات"),
        QStringLiteral("DBGrid1"),
        QStringLiteral("BitBtn1"),
        QStringLiteral("تاييد"),
        {
            untotalled(numberColumn("Code", "كد", 40, " کد مالياتي وارد گردد")),
            amountColumn("Mablagh_1", "ازمبلغ", kAmount, " مبلغ ابتداي محدوده جدول مالياتي وارد گردد "),
            amountColumn("Mablagh_2", "تامبلغ", kAmount, " مبلغ انتهاي محدوده جدول مالياتي وارد گردد "),
            amountColumn("Percent", "درصدماليات", kAmount, " درصد ماليات وارد گردد "),
            amountColumn("Mab_tax", "     مبلغ ماليات", kTax, " مبلغ ماليات وارد گردد "),
            textColumn("Taxfile1", "اطلاعات فايل حقوق بگير", 200,
                       " نام فايل ارسالي ماليات کارکنان وارد گردد "),
            textColumn("Taxfile2", "اطلاعات اقلام حقوق و دستمزد", 200, ""),
            textColumn("Taxfile3", "اطلاعات فايل خلاصه", 200, ""),
            numberColumn("Percent_k", "سهم كارفرما", 100, " درصد سهم كارفرما در پرداخت ماليات وارد گردد "),
        },
        {
            {Kind::Panel, "Panel2", "plBottom", Align::Left, {0, 0, 104, 32}, {}, {}},
            {Kind::Button, kDeleteTaxTable, "Panel2", Align::None, {0, 2, 90, 28}, "حذف جدول", {}},
        }};
    return layout;
}

}  // namespace forms
