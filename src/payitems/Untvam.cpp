#include "Untvam.h"

#include "DefinitionPage.h"
#include "FrmVam.h"
#include "Untdefine.h"

definition::DefinitionPage* _FrmVam = nullptr;

namespace payitems {
namespace {

// Digits that an instalment can have, and what a new kind starts with.
constexpr int kAmountDigits = 9;
constexpr int kMaxKinds = 99;

const QString kFileName = QStringLiteral("FileName");

class TFrmVam : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

    void BuildPopup() override {
        DefinitionPage::BuildPopup();
        addRowEntry(QStringLiteral("ساختار فايل ..."), Qt::Key_F4, [this] { openLayout(); });
    }

protected:
    // The layouts of the month's kinds follow them; those of deleted kinds go.
    QStringList followConfirm(const definition::ConfirmPlan& plan) override {
        QList<layouts::LayoutMove> moves;
        for (const auto& [before, now] : plan.layoutPlaces())
            moves.append({before, now});
        return QStringList("Update Payvam Set Codetemp=NULL where CodeMah=" + data::quoted(month())) +
               layouts::bankLayoutMoves(db(), layouts::BankFile::Loan, moves);
    }

    void doubleClick(int column) override {
        if (column == gridColumn(kFileName))
            openLayout();
        else
            DefinitionPage::doubleClick(column);
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
        layouts::openBankLayout(host(), layouts::BankFile::Loan, rows().recNo(), rows().text(kFileName));
    }
};

}  // namespace

const definition::PageDefinition& frmVam() {
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
        .make = definition::made<TFrmVam>,
    };
    return page;
}

}  // namespace payitems
