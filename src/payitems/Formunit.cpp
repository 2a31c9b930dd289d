#include "Formunit.h"

#include "Formpay.h"

definition::DefinitionPage* _Formpay = nullptr;

namespace payitems {
namespace {

// Digits that an amount can have, and what a new item starts with.
constexpr int kAmountDigits = 9;
// An item's amounts need a column of their own; more items than this no month has.
constexpr int kMaxItems = 99;

}  // namespace

const definition::PageDefinition& formpay() {
    static const definition::PageDefinition page = {
        .layout = &forms::formpay(),
        .table = QStringLiteral("Paymozd"),
        .maxRows = kMaxItems,
        .newRow = definition::NewRow::OnlyFromLastRow,
        .defaults = {{QStringLiteral("Fieldlen"), kAmountDigits}},
        .limits = {{QStringLiteral("Fieldlen"), kAmountDigits}},
        .emptiesMonth = QStringLiteral("delete from %1 where codemah = %2"),
        .messages = {.emptyCode = QStringLiteral(" کد خالي مي باشد"),
                     .emptyName = QStringLiteral(" ستون شرح خالي مي باشد"),
                     .repeatedName = QStringLiteral(" شرح تکراري مي باشد"),
                     .inUse = QStringLiteral("اين رديف داراي گردش است ")},
        .listsOwnRows = true,
        .upgrades = {QStringLiteral(
            " If Not Exists(Select * From SysObjects SO Inner Join SysColumns SC On(SO.Id = SC.Id)  Where "
            "SO.Name = 'Paymozd' And SC.Name = 'payfix')  Alter Table Paymozd Add  payfix varchar(1) ")},
        .upgradesAfterConfirm = {QStringLiteral("EZAFEHKAR")},
        .fixesKeys = false,
        .pageKey = QStringLiteral("MOZD"),
        .reportTitle = QStringLiteral(" مشخصات حقوق و مزايا "),
    };
    return page;
}

}  // namespace payitems
