#include "References.h"

namespace definition {
namespace {

Reference itemList(const QString& table, const QString& column, const QString& title) {
    return {.as = HeldAs::ShareList, .table = table, .column = column, .title = title};
}

Reference itemMarks(const QString& table, const QString& title) {
    return {.as = HeldAs::Place,
            .table = table,
            .column = QStringLiteral("codmoz_"),
            .title = QStringLiteral("علامت مولفه هاي ") + title};
}

// Several pages share the columns of this table.
Reference benefitAmounts() {
    return {.as = HeldAs::Amounts,
            .table = QStringLiteral("Paytraf"),
            .column = QStringLiteral("code_"),
            .title = QStringLiteral("مبالغ كاركنان")};
}

ReferredRows salaryItems() {
    return {QStringLiteral("Paymozd"),
            QStringLiteral("حقوق و مزايا"),
            {{.as = HeldAs::Amounts,
              .table = QStringLiteral("Payroll"),
              .column = QStringLiteral("code_"),
              .title = QStringLiteral("مبالغ كاركنان"),
              .upgradeName = QStringLiteral("PAYROLL")},
             itemList("Paymozd", "Perc_mal", "معافيت مالياتي حقوق و مزايا"),
             itemList("Paymozd", "Perc_mos", "مساعده حقوق و مزايا"),
             itemList("paykar", "Perc_mal", "معافيت مالياتي مزاياي غير مستمر"),
             itemList("Payvam", "Perc_vam", "حوزه محاسبه وام"),
             itemList("ezafehkar", "perc_mal", "معافيت مالياتي اضافه كاري"),
             itemMarks("ezafehkar", "اضافه كاري"),
             itemMarks("Nobatkari", "نوبت كاري"),
             itemMarks("Gheybat", "غيبت"),
             itemMarks("Padash", "پاداش"),
             itemMarks("Mamorit", "ماموريت"),
             itemMarks("Payomr", "بيمه عمر"),
             {.as = HeldAs::Place,
              .table = QStringLiteral("grohpaye"),
              .column = QStringLiteral("code_"),
              .title = QStringLiteral("مبالغ گروه(پايه)"),
              .ofMonth = false}}};
}

ReferredRows benefits() {
    return {QStringLiteral("paykar"),
            QStringLiteral("مزاياي غير مستمر"),
            {benefitAmounts(),
             {.as = HeldAs::ColumnName,
              .table = QStringLiteral("Padash"),
              .column = QStringLiteral("bedbefor"),
              .title = QStringLiteral("بدهكاري قبلي پاداش"),
              .alongside = QStringLiteral("Desbefor")}}};
}

ReferredRows loanKinds() {
    return {QStringLiteral("Payvam"),
            QStringLiteral("وامها"),
            {{.as = HeldAs::Code,
              .table = QStringLiteral("Vam"),
              .column = QStringLiteral("Code_Vam"),
              .title = QStringLiteral("وام هاي كاركنان"),
              .goesWithRow = true,
              .keepsRow = QStringLiteral("select * from [Vam] where code_Vam= %1 And "
                                         "Mablagh_g+Mablagh_m1+Mablagh_k>0 And CodeMah=%2")},
             {.as = HeldAs::LayoutTable,
              .table = QStringLiteral("BCK_FBANKV"),
              .title = QStringLiteral("ساختار فايل وام"),
              .ofMonth = false}}};
}

ReferredRows insuranceSchemes() {
    return {QStringLiteral("paybimeh"),
            QStringLiteral("بيمه"),
            {{.as = HeldAs::Code,
              .table = QStringLiteral("person"),
              .column = QStringLiteral("code_biemh"),
              .title = QStringLiteral("بيمه كاركنان"),
              .ofMonth = false,
              .lessOne = true,
              .keepsRow = QStringLiteral(" select * from person where code_biemh=%1")}}};
}

ReferredRows coefficients(const QString& table, const QString& title) {
    return {table, title, {benefitAmounts()}};
}

}  // namespace

const QList<ReferredRows>& referredRows() {
    static const QList<ReferredRows> rows = {
        salaryItems(),
        benefits(),
        loanKinds(),
        insuranceSchemes(),
        coefficients("ezafehkar", "اضافه كاري"),
        coefficients("Nobatkari", "نوبت كاري"),
        coefficients("Gheybat", "غيبت"),
        coefficients("Padash", "پاداش"),
        coefficients("Mamorit", "ماموريت"),
        coefficients("Payomr", "بيمه عمر"),
    };
    return rows;
}

const QList<Reference>& referencesTo(const QString& table) {
    for (const ReferredRows& rows : referredRows())
        if (rows.table.compare(table, Qt::CaseInsensitive) == 0)
            return rows.references;
    static const QList<Reference> none;
    return none;
}

}  // namespace definition
