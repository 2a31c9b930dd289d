#include "Bimehunit.h"

#include "DatabaseHelpers.h"
#include "FrmBimeh.h"
#include "ModuleVariables.h"
#include "Query.h"
#include "Untdefbimdisk.h"

namespace taxins {
namespace {

using definition::ItemCode;

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

// What an employee holds of the scheme with that code.
QString held(qint64 code) {
    return QString::number(code - 1);
}

class FrmBimeh : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

    void NumberNewRow() override;

protected:
    void OpenData() override;
    bool InUse() override;
    void deleteAndRenumber() override;
    QList<ItemCode> itemCodes() override;
    void FollowConfirm(const QList<ItemCode>& schemes) override;
    void Confirmed(const QList<ItemCode>& schemes) override;
    void DoubleClick(int column) override;

private:
    // Of the rows in their order, when the copy was made; the rows behind them are new.
    QList<qint64> m_codesBefore;
};

// The name starts as blanks all over its column.
void FrmBimeh::NumberNewRow() {
    DefinitionPage::NumberNewRow();
    if (rows().state() == data::Dataset::State::Insert)
        rows().setValue(kName, QString(rows().columns()[rows().columnIndex(kName)].length, u' '));
}

void FrmBimeh::OpenData() {
    DefinitionPage::OpenData();
    Confirmed(itemCodes());
}

QList<ItemCode> FrmBimeh::itemCodes() {
    const int code = rows().columnIndex(definition().fields.code);
    QList<ItemCode> schemes;
    for (int row = 0; row < rows().recordCount(); ++row)
        schemes.append({rows().valueAt(row, code).toLongLong(), m_codesBefore.value(row)});
    return schemes;
}

void FrmBimeh::Confirmed(const QList<ItemCode>& schemes) {
    m_codesBefore.clear();
    for (const ItemCode& scheme : schemes)
        m_codesBefore.append(scheme.now);
}

void FrmBimeh::deleteAndRenumber() {
    const int row = rows().row();
    DefinitionPage::deleteAndRenumber();
    if (row < m_codesBefore.size())
        m_codesBefore.removeAt(row);
}

bool FrmBimeh::InUse() {
    const qint64 codeBefore = m_codesBefore.value(rows().row());
    if (codeBefore == 0)
        return false;
    data::Query holders(_MyDatabase->Connection);
    holders.setSql(" select * from person where code_biemh=" + held(codeBefore));
    holders.open();
    return !holders.isEmpty();
}

// All holders move in one statement: step by step, those of two schemes would be taken for one another.
void FrmBimeh::FollowConfirm(const QList<ItemCode>& schemes) {
    QString cases;
    QStringList moved;
    for (const ItemCode& scheme : schemes) {
        if (scheme.before == 0 || scheme.before == scheme.now)
            continue;
        cases += " When " + held(scheme.before) + " Then " + held(scheme.now);
        moved.append(held(scheme.before));
    }
    if (!moved.isEmpty())
        Exec_Sql(*_MyDatabase, "Update person Set code_biemh=Case code_biemh" + cases +
                                   " Else code_biemh End Where code_biemh In (" + moved.join(u',') + ")");
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
