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
            .title = QStringLiteral("مبالغ كاركنان"),
            .person = QStringLiteral("code_0")};
}

ReferredRows salaryItems() {
    return {QStringLiteral("Paymozd"),
            QStringLiteral("حقوق و مزايا"),
            {{.as = HeldAs::Amounts,
              .table = QStringLiteral("Payroll"),
              .column = QStringLiteral("code_"),
              .title = QStringLiteral("مبالغ كاركنان"),
              .upgradeName = QStringLiteral("PAYROLL"),
              .person = QStringLiteral("code_0")},
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
                                         "Mablagh_g+Mablagh_m1+Mablagh_k>0 And CodeMah=%2"),
              .person = QStringLiteral("code"),
              .amount = QStringLiteral("Mablagh_g+Mablagh_m1+Mablagh_k")},
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
              .keepsRow = QStringLiteral(" select * from person where code_biemh=%1"),
              .person = QStringLiteral("code")}}};
}

ReferredRows coefficients(const QString& table, const QString& title) {
    return {table, title, {benefitAmounts()}};
}

// Employees' records hold the codes of the organisation's lists, a column a list.
ReferredRows organisationList(const QString& table, const QString& column, const QString& title) {
    return {table,
            title,
            {{.as = HeldAs::Code,
              .table = QStringLiteral("person"),
              .column = column,
              .title = title + QStringLiteral(" كاركنان"),
              .ofMonth = false,
              .keepsRow = "Select * from person where " + column + QStringLiteral("=%1"),
              .person = QStringLiteral("code")}}};
}

ReferredRows costCentres() {
    return {QStringLiteral("Tafsily2"),
            QStringLiteral("مراكز هزينه"),
            {{.as = HeldAs::Code,
              .table = QStringLiteral("person"),
              .column = QStringLiteral("tafsily2"),
              .title = QStringLiteral("مركز هزينه كاركنان"),
              .ofMonth = false,
              .keepsRow = QStringLiteral(" select * from person where tafsily2=%1"),
              .person = QStringLiteral("code")},
             {.as = HeldAs::Code,
              .table = QStringLiteral("asnad"),
              .column = QStringLiteral("tafsily2"),
              .title = QStringLiteral("اسناد"),
              .ofMonth = false,
              .keepsRow = QStringLiteral(" select * from asnad where tafsily2=%1"),
              .holderCode = {}}}};
}

ReferredRows centreGroups() {
    return {QStringLiteral("GrohTafsily2"),
            QStringLiteral("گروه مراكز هزينه"),
            {{.as = HeldAs::Prefix,
              .table = QStringLiteral("Tafsily2"),
              .column = QStringLiteral("Tafsily2"),
              .title = QStringLiteral("مراكز گروه"),
              .ofMonth = false,
              .holderCode = QStringLiteral("Tafsily2"),
              .holderName = QStringLiteral("NamHesab")}}};
}

}  // namespace

bool sameTable(const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

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
        organisationList("Bank", "code_bank", "بانک"),
        organisationList("depart", "depart", "عنوان سازماني"),
        organisationList("resht_t", "resht_t", "رشته تحصيلي"),
        organisationList("resht_a", "resht_a", "رشته اداري"),
        organisationList("depart_1", "vahd", "واحد سازماني"),
        organisationList("resteh", "resteh", "رده سازماني"),
        organisationList("semat", "semat", "سمت"),
        organisationList("grohpaye", "grade", "گروه(پايه)"),
        organisationList("khedmat", "khdmat", "محل خدمت"),
        organisationList("J_Tahsil", "tahsil", "تحصيلات"),
        costCentres(),
        centreGroups(),
    };
    return rows;
}

const QList<Reference>& referencesTo(const QString& table) {
    for (const ReferredRows& rows : referredRows())
        if (sameTable(rows.table, table))
            return rows.references;
    static const QList<Reference> none;
    return none;
}

}  // namespace definition
