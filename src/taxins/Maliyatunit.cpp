#include "Maliyatunit.h"

#include "FrmMaliyat.h"
#include "Malyobjectunit.h"
#include "ModuleVariables.h"
#include "TaxLists.h"

namespace taxins {
namespace {

const QString kCombo = QStringLiteral("cmbMaliyatinfo");
const QString kBankList = QStringLiteral("J_Bank");

const definition::PageDefinition& declaration() {
    static const definition::PageDefinition page = {
        .layout = &forms::frmMaliyat(),
        .kind = definition::PageKind::Direct,
        .fields = {.code = QStringLiteral("Code_Field")},
        .deletion = definition::Deletion::LeavesCodes,
        .messages = {.emptyName = QStringLiteral("شرح خالي مي باشد"),
                     .repeatedName = QStringLiteral(" شرح تکراري مي باشد")},
        .noHint = QStringLiteral(" "),
        .pageKey = QStringLiteral("MaliyatInfo"),
        .reportTitle = QStringLiteral(" اطلاعات مالياتي "),
    };
    return page;
}

// Banks have a name; every other code has a description.
const definition::PageMessages& bankMessages() {
    static const definition::PageMessages messages = {.emptyName = QStringLiteral("نام خالي مي باشد"),
                                                      .repeatedName = QStringLiteral(" نام تکراري مي باشد")};
    return messages;
}

class FrmMaliyat : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

    void OpenPage() override;

protected:
    void OpenData() override { showList(); }
    void ReopenData() override;
    QList<forms::PageColumn> ExtraColumns() override;
    const definition::PageMessages& messages() const override;
    void DescribeGrid(TGridProperty& property) override { property.exportName = m_list; }

private:
    void showList();
    bool showsBanks() const { return m_list == kBankList; }

    int m_item = -1;  // the combo's item that is shown
    QString m_list;   // and its table
    std::optional<data::ServerError> m_trouble;
};

void FrmMaliyat::OpenPage() {
    m_trouble.reset();
    DefinitionPage::OpenPage();
    // Lists that could not be filled do not keep the chosen one from being shown.
    if (m_trouble)
        PostErrorHandler(*m_trouble);
}

void FrmMaliyat::ReopenData() {
    try {
        rows().checkBrowseMode();
    } catch (...) {
        // The row that cannot be stored keeps its list.
        m_window.SetComboIndex(kCombo, m_item);
        throw;
    }
    showList();
}

void FrmMaliyat::showList() {
    try {
        seedTaxLists(*_MyDatabase);
    } catch (const data::ServerError& error) {
        m_trouble = error;
    }
    m_item = m_window.ComboIndex(kCombo);
    m_list = chosenLists().value(m_item);
    showColumns();
    if (rows().active() && rows().tableName() == m_list)
        rows().refresh();
    else
        openTable(m_list);
}

QList<forms::PageColumn> FrmMaliyat::ExtraColumns() {
    const QString item = m_window.ComboText(kCombo);
    return {showsBanks() ? forms::taxListTitle("نام " + item, " نام را وارد کنيد ")
                         : forms::taxListTitle("شرح " + item, " شرح را وارد کنيد ")};
}

const definition::PageMessages& FrmMaliyat::messages() const {
    return showsBanks() ? bankMessages() : DefinitionPage::messages();
}

}  // namespace

definition::DefinitionPage* frmMaliyat(BaseWindow& window, definition::DefinitionPage** variable,
                                       QWidget* parent) {
    return new FrmMaliyat(declaration(), window, variable, parent);
}

}  // namespace taxins
