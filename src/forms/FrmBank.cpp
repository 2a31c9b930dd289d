#include "FrmBank.h"

namespace forms {

const PageLayout& frmBank() {
    static const PageLayout layout = {
        "TFrmBank",
        "معرفي بانكها",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            PageColumn{.grid = {.field = "Bankcode",
                                .title = "كد",
                                .width = 25,
                                .kind = widgets::ColumnKind::Code,
                                .readOnly = true},
                       .hint = " کد بانک وارد گردد"},
            PageColumn{.grid = {.field = "BankNam",
                                .title = "نام بانك",
                                .width = 231,
                                .kind = widgets::ColumnKind::Name},
                       .hint = " نام بانک وارد گردد"},
            textColumn("FileName", "نام فايل ارسالي", 159,
                       " نام فايل ارسالي به بانک در فلاپي بانک وارد گرددبطور مثال(MYBANK.DBF)"),
            textColumn("BankHesab", "شماره حساب", 114,
                       " نام فايل ارسالي به بانک وارد گردد بطور مثال MyBank.Dbf وسپس ساختار فايل معرفي گردد"),
            textColumn(
                "SumFile", "نام فايل کنترل", 175,
                " نام فايل ارسالي کنترلي به بانک وارد گردد بطور مثال MyBank.Dbf وسپس ساختار فايل معرفي گردد"),
            markColumn("Noclf", "باCR/LF", 48, " در صورتي که فايل ارسالي داراي CR/LF مي باشد مشخص گردد"),
            untotalled(numberColumn("CodeBankLen", "طول حساب بانكي", 120, {})),
            PageColumn{.grid = {.field = "rcontrol",
                                .title = "مكان رديف كنترل",
                                .width = 110,
                                .kind = widgets::ColumnKind::Cycle,
                                .centred = true},
                       .hint = " مكان رديف كنترلي را مشخص كنيد",
                       .cycle = {"اول", "آخر"}},
        }};
    return layout;
}

}  // namespace forms
