#include "FrmBank.h"

#include "BankForms.h"
#include "ModuleVariables.h"
#include "PeopleCodes.h"
#include "Untdefine.h"

namespace orglists {
namespace {

using layouts::BankFile;

constexpr int kSentFile = 2;                             // the grid's columns of the two files' names
constexpr int kControlFile = 4;                          // a double click there opens the file's layout
const QString kReferring = QStringLiteral("code_bank");  // the column of `person` with a bank's code

const definition::PageDefinition& declaration() {
    static const definition::PageDefinition page = {
        .layout = &forms::frmBank(),
        .kind = definition::PageKind::Direct,
        .table = QStringLiteral("Bank"),
        .fields = {.code = QStringLiteral("BankCode"), .name = QStringLiteral("BankNam")},
        .messages = {.emptyName = QStringLiteral("نام بانک خالي مي باشد"),
                     .repeatedName = QStringLiteral("نام بانک  تکراري مي باشد"),
                     .inUse = QStringLiteral(" گردش دارد")},
        .upgrades = {QStringLiteral(
            " If Not Exists(Select * From SysObjects SO Inner Join SysColumns SC On(SO.Id = SC.Id)  Where "
            "SO.Name = 'bank' And SC.Name = 'rcontrol')  Alter Table bank Add rcontrol varchar(10) ")},
        .pageKey = QStringLiteral("Bank"),
        .reportTitle = QStringLiteral(" مشخصات بانکها "),
    };
    return page;
}

class BankPage : public definition::DefinitionPage {
public:
    BankPage(BaseWindow& window, DefinitionPage** variable, QWidget* parent)
        : DefinitionPage(declaration(), window, variable, parent) {}

    void BuildPopup() override {
        DefinitionPage::BuildPopup();
        addRowEntry(QStringLiteral("ساختار فايل ارسالي ..."), Qt::Key_F4,
                    [this] { openLayout(BankFile::Sent); });
        addRowEntry(QStringLiteral("ساختار فايل کنترل ..."), Qt::SHIFT | Qt::Key_F4,
                    [this] { openLayout(BankFile::Control); });
    }

protected:
    bool InUse() override { return isUsedByPeople(kReferring, storedRowCode()); }

    // Everybody keeps his bank, and every bank its files' layouts; those of the deleted bank go.
    void FollowMoves(const definition::RowMoves& moved) override {
        movePeopleCodes(kReferring, moved.codes);
        const int deleted = moved.deletedPlace;
        if (deleted == 0)
            return;
        QList<layouts::LayoutMove> moves = {{deleted, 0}};
        for (int row = deleted; row <= rows().recordCount(); ++row)
            moves.append({row + 1, row});
        for (const BankFile file : {BankFile::Sent, BankFile::Control})
            layouts::moveBankLayouts(*_MyDatabase, file, moves);
    }

    void DoubleClick(int column) override {
        if (column == kSentFile)
            openLayout(BankFile::Sent);
        else if (column == kControlFile)
            openLayout(BankFile::Control);
        else
            DefinitionPage::DoubleClick(column);
    }

private:
    // A layout is named by its bank's row, so the row has to be there first; another operator may have
    // moved it since it was read.
    void openLayout(BankFile file) {
        if (rows().state() == data::Dataset::State::Insert)
            rows().post();
        rows().checkBrowseMode();
        if (!rows().isEmpty())
            layouts::openBankLayout(file, rows().storedPlace());
    }
};

}  // namespace

definition::DefinitionPage* frmBank(BaseWindow& window, definition::DefinitionPage** variable,
                                    QWidget* parent) {
    return new BankPage(window, variable, parent);
}

}  // namespace orglists
