#include "Bimehunit.h"

#include "FrmBimeh.h"
#include "Untdefbimdisk.h"

namespace taxins {
namespace {

constexpr int kMaxSchemes = 99;
const QString kName = QStringLiteral("desk");
const QString kEveryone = QStringLiteral("كليه كاركنان");

const definition::PageDefinition& declaration() {
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
    };
    return page;
}

class FrmBimeh : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

    void NumberNewRow() override;

protected:
    void DoubleClick(int column) override;
};

// The name starts as blanks all over its column.
void FrmBimeh::NumberNewRow() {
    DefinitionPage::NumberNewRow();
    if (rows().state() == data::Dataset::State::Insert)
        rows().setValue(kName, QString(rows().columns()[rows().columnIndex(kName)].length, u' '));
}

void FrmBimeh::DoubleClick(int column) {
    const QString file = grid().gridColumns().value(column).field.toUpper();
    if (!file.startsWith(QLatin1String("BIMFILE")))
        DefinitionPage::DoubleClick(column);
    else if (rows().active())
        layouts::openInsuranceLayout(file);
}

}  // namespace

definition::DefinitionPage* frmbimeh(BaseWindow& window, definition::DefinitionPage** variable,
                                     QWidget* parent) {
    return new FrmBimeh(declaration(), window, variable, parent);
}

}  // namespace taxins
