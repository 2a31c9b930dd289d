#include "Untbimeh.h"

#include "DefinitionPage.h"
#include "Frmbimeh.h"
#include "Untdefbimdisk.h"

definition::DefinitionPage* _Frmbimeh = nullptr;

namespace taxins {
namespace {

constexpr int kMaxSchemes = 99;
const QString kName = QStringLiteral("desk");
const QString kEveryone = QStringLiteral("كليه كاركنان");

class TFrmbimeh : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

    void NumberNewRow() override;

protected:
    void doubleClick(int column) override;
};

// The name starts as blanks all over its column.
void TFrmbimeh::NumberNewRow() {
    DefinitionPage::NumberNewRow();
    if (rows().state() == data::Dataset::State::Insert)
        rows().setValue(kName, QString(rows().columns()[rows().columnIndex(kName)].length, u' '));
}

void TFrmbimeh::doubleClick(int column) {
    const QString file = fieldAt(column).toUpper();
    if (!file.startsWith(QLatin1String("BIMFILE")))
        DefinitionPage::doubleClick(column);
    else if (rows().active())
        layouts::openInsuranceLayout(host(), file, rows().text(file));
}

}  // namespace

const definition::PageDefinition& frmbimeh() {
    static const definition::PageDefinition page = {
        .layout = &forms::frmbimeh(),
        .table = QStringLiteral("paybimeh"),
        .maxRows = kMaxSchemes,
        .fields = {.name = kName},
        .defaults = {{QStringLiteral("Typerep1"), kEveryone}, {QStringLiteral("Typerep2"), kEveryone}},
        .keepsCodes = true,
        .messages = {.emptyName = QStringLiteral("شرح خالي مي باشد"),
                     .repeatedName = QStringLiteral(" شرح تکراري مي باشد"),
                     .inUse = QStringLiteral("گردش دارد ")},
        .pageKey = QStringLiteral("Bimeh"),
        .reportTitle = QStringLiteral(" مشخصات بيمه "),
        .make = definition::made<TFrmbimeh>,
    };
    return page;
}

}  // namespace taxins
