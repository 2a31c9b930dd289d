#include "Untmaliyat.h"

#include "DefinitionPage.h"
#include "FrmMaliyat.h"
#include "Malyobjectunit.h"
#include "TaxLists.h"

definition::DefinitionPage* _FrmMaliyat = nullptr;

namespace taxins {
namespace {

const QString kCombo = QStringLiteral("cmbMaliyatinfo");
const QString kBankList = QStringLiteral("J_Bank");

// Banks have a name; every other code has a description.
const definition::PageMessages& bankMessages() {
    static const definition::PageMessages messages = {.emptyName = QStringLiteral("نام خالي مي باشد"),
                                                      .repeatedName = QStringLiteral(" نام تکراري مي باشد")};
    return messages;
}

class TFrmMaliyat : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

protected:
    void openData() override { showList(); }
    void reopenData() override;
    QList<Step> followUps() override;
    QList<forms::PageColumn> extraColumns() override;
    const definition::PageMessages& messages() const override;
    void describeGrid(TGridProperty& property) override { property.exportName = m_list; }

private:
    void showList();
    bool showsBanks() const { return m_list == kBankList; }

    int m_item = -1;  // the combo's item that is shown
    QString m_list;   // and its table
};

void TFrmMaliyat::reopenData() {
    try {
        rows().checkBrowseMode();
    } catch (...) {
        // The row that cannot be stored keeps its list.
        m_window.SetComboIndex(kCombo, m_item);
        throw;
    }
    showList();
}

void TFrmMaliyat::showList() {
    m_item = m_window.ComboIndex(kCombo);
    m_list = chosenLists().value(m_item);
    if (rows().active() && rows().tableName() == m_list)
        rows().refresh();
    else
        openTable(m_list);
}

QList<definition::DefinitionPage::Step> TFrmMaliyat::followUps() {
    const auto seed = [this] {
        // Where a row could not be stored, its list is not taken away from it.
        if (rows().state() == data::Dataset::State::Browse || !rows().active())
            seedTaxLists(db(), rows());
    };
    return DefinitionPage::followUps() << seed;
}

QList<forms::PageColumn> TFrmMaliyat::extraColumns() {
    const QString item = m_window.ComboText(kCombo);
    return {showsBanks() ? forms::taxListTitle("نام " + item, " نام را وارد کنيد ")
                         : forms::taxListTitle("شرح " + item, " شرح را وارد کنيد ")};
}

const definition::PageMessages& TFrmMaliyat::messages() const {
    return showsBanks() ? bankMessages() : DefinitionPage::messages();
}

}  // namespace

const definition::PageDefinition& frmMaliyat() {
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
        .make = definition::made<TFrmMaliyat>,
    };
    return page;
}

}  // namespace taxins
