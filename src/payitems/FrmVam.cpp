#include "FrmVam.h"

#include "BankForms.h"
#include "DatabaseHelpers.h"
#include "ModuleVariables.h"
#include "Untdefine.h"

namespace payitems {
namespace {

// Digits that an instalment can have, and what a new kind starts with.
constexpr int kAmountDigits = 9;
constexpr int kMaxKinds = 99;

const QString kFileName = QStringLiteral("FileName");

const definition::PageDefinition& declaration() {
    static const definition::PageDefinition page = {
        .layout = &forms::frmVam(),
        .table = QStringLiteral("Payvam"),
        .maxRows = kMaxKinds,
        .defaults = {{QStringLiteral("Fieldlen"), kAmountDigits}},
        .limits = {{QStringLiteral("Fieldlen"), kAmountDigits}},
        .messages = {.emptyName = QStringLiteral("شرح خالي مي باشد"),
                     .repeatedName = QStringLiteral(" شرح تکراري مي باشد"),
                     .inUse = QStringLiteral("اين رديف داراي گردش است ")},
        .pageKey = QStringLiteral("VAM"),
        .reportTitle = QStringLiteral(" مشخصات وام "),
    };
    return page;
}

class VamPage : public definition::DefinitionPage {
public:
    VamPage(BaseWindow& window, DefinitionPage** variable, QWidget* parent)
        : DefinitionPage(declaration(), window, variable, parent) {}

    void BuildPopup() override {
        DefinitionPage::BuildPopup();
        addRowEntry(QStringLiteral("ساختار فايل ..."), Qt::Key_F4, [this] { openLayout(); });
    }

protected:
    // The layouts of the month's kinds follow them; those of deleted kinds go.
    void FollowConfirm(const definition::ConfirmPlan& plan) override {
        data::HostDatabase& db = *_MyDatabase;
        Exec_Sql(db,
                 "Update Payvam Set Codetemp=NULL where CodeMah=" + data::quoted(m_window.Month_Curent()));
        DefinitionPage::FollowConfirm(plan);
        QList<layouts::LayoutMove> moves;
        for (const auto& [before, now] : plan.layoutPlaces())
            moves.append({before, now});
        layouts::moveBankLayouts(db, layouts::BankFile::Loan, moves);
    }

    void DoubleClick(int column) override {
        if (definition().layout->columns[column].grid.field == kFileName)
            openLayout();
        else
            DefinitionPage::DoubleClick(column);
    }

private:
    // A layout is named by its kind's place as it is stored: until the kind stands there, it has none.
    void openLayout() {
        if (rows().isEmpty())
            return;
        const bool isNew = rows().state() == data::Dataset::State::Insert;
        if (!isNew)
            rows().checkBrowseMode();
        if (isNew || copiedRow().place != rows().recNo()) {
            showError(
                QStringLiteral("اين وام هنوز تاييد نشده يا جاي آن عوض شده است. ابتدا دكمه تاييد را "
                               "بزنيد، سپس ساختار فايل آن را باز كنيد."));
            return;
        }
        layouts::openBankLayout(layouts::BankFile::Loan, rows().recNo());
    }
};

}  // namespace

definition::DefinitionPage* frmVam(BaseWindow& window, definition::DefinitionPage** variable,
                                   QWidget* parent) {
    return new VamPage(window, variable, parent);
}

}  // namespace payitems
