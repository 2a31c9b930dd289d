#include "Untpaykar.h"

#include "DefinitionPage.h"
#include "FrmPaykar.h"

definition::DefinitionPage* _FrmPaykar = nullptr;

namespace payitems {
namespace {

// Digits that an amount can have, and what a new item starts with.
constexpr int kAmountDigits = 9;
constexpr int kMaxItems = 99;

class TFrmPaykar : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

protected:
    // An item is either deducted or added.
    void checkRow() override {
        const bool deducted = marks().isMarked("Kasry");
        if (deducted && marks().isMarked("Add"))
            refuseRow(QStringLiteral(" گزينه هاي کسر واضافه همزمان نميتوانند انتخاب شوند"));
        if (!deducted && !marks().isMarked("Add"))
            refuseRow(QStringLiteral(" گزينه هاي کسر واضافه همزمان نميتوانندخالي باشند"));
    }
};

}  // namespace

const definition::PageDefinition& frmPaykar() {
    static const definition::PageDefinition page = {
        .layout = &forms::frmPaykar(),
        .table = QStringLiteral("paykar"),
        .maxRows = kMaxItems,
        .defaults = {{QStringLiteral("Fieldlen"), kAmountDigits}},
        .limits = {{QStringLiteral("Fieldlen"), kAmountDigits}},
        .messages = {.emptyName = QStringLiteral("شرح خالي مي باشد"),
                     .repeatedName = QStringLiteral(" شرح تکراري مي باشد"),
                     .inUse = QStringLiteral("اين رديف داراي گردش است ")},
        .fixedAmounts = true,
        .upgrades = {QStringLiteral(
            " if not EXISTS (select * from sysobjects a inner join syscolumns b on a.id=b.id where "
            "Upper(a.name)='PAYKAR' and Upper(b.name)='NAGHDI')  Alter Table Paykar Add NAGHDI varchar(1) ")},
        .pageKey = QStringLiteral("Paykar"),
        .reportTitle = QStringLiteral(" مشخصات مزاياي غير مستمر "),
        .make = definition::made<TFrmPaykar>,
    };
    return page;
}

}  // namespace payitems
