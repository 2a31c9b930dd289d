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

protected:
    void OpenData() override { showList(); }
    void ReopenData() override;
    QList<Step> FollowUps() override;
    QList<forms::PageColumn> ExtraColumns() override;
    const definition::PageMessages& messages() const override;
    void DescribeGrid(TGridProperty& property) override { property.exportName = m_list; }

private:
    void showList();
    bool showsBanks() const { return m_list == kBankList; }

    int m_item = -1;  // the combo's item that is shown
    QString m_list;   // and its table
};

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
    m_item = m_window.ComboIndex(kCombo);
    m_list = chosenLists().value(m_item);
    if (rows().active() && rows().tableName() == m_list)
        rows().refresh();
    else
        openTable(m_list);
}

QList<definition::DefinitionPage::Step> FrmMaliyat::FollowUps() {
    const auto seed = [this] {
        // Where a row could not be stored, its list is not taken away from it.
        if (rows().state() == data::Dataset::State::Browse || !rows().active())
            seedTaxLists(*_MyDatabase, rows());
    };
    return DefinitionPage::FollowUps() << seed;
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
