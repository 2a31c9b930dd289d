#include "Untbank.h"

#include "DatabaseHelpers.h"
#include "DefinitionPage.h"
#include "FrmBank.h"
#include "PeopleCodes.h"
#include "Untdefine.h"

definition::DefinitionPage* _FrmBank = nullptr;

namespace orglists {
namespace {

using layouts::BankFile;

// The columns of the two files' names: a double click there opens the file's layout.
const QString kSentFile = QStringLiteral("FileName");
const QString kControlFile = QStringLiteral("SumFile");

class TFrmBank : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

    void BuildPopup() override {
        DefinitionPage::BuildPopup();
        addRowEntry(QStringLiteral("ساختار فايل ارسالي ..."), Qt::Key_F4,
                    [this] { openLayout(BankFile::Sent); });
        addRowEntry(QStringLiteral("ساختار فايل کنترل ..."), Qt::SHIFT | Qt::Key_F4,
                    [this] { openLayout(BankFile::Control); });
    }

protected:
    // Everybody keeps his bank, and every bank its files' layouts; those of the deleted bank go.
    void followMoves(const definition::RowMoves& moved) override {
        movePeopleCodes(db(), definition().table, moved.codes);
        const int deleted = moved.deletedPlace;
        if (deleted == 0)
            return;
        QList<layouts::LayoutMove> moves = {{deleted, 0}};
        for (int row = deleted; row <= rows().recordCount(); ++row)
            moves.append({row + 1, row});
        for (const BankFile file : {BankFile::Sent, BankFile::Control})
            Exec_Sql(db(), layouts::bankLayoutMoves(db(), file, moves).join(u'\n'));
    }

    void doubleClick(int column) override {
        if (column == gridColumn(kSentFile))
            openLayout(BankFile::Sent);
        else if (column == gridColumn(kControlFile))
            openLayout(BankFile::Control);
        else
            DefinitionPage::doubleClick(column);
    }

private:
    // A layout is named by its bank's row, so the row has to be there first; another operator may have
    // moved it since it was read.
    void openLayout(BankFile file) {
        if (rows().state() == data::Dataset::State::Insert)
            rows().post();
        rows().checkBrowseMode();
        if (!rows().isEmpty())
            layouts::openBankLayout(host(), file, rows().storedPlace(),
                                    rows().text(file == BankFile::Sent ? kSentFile : kControlFile));
    }
};

}  // namespace

const definition::PageDefinition& frmBank() {
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
        .make = definition::made<TFrmBank>,
    };
    return page;
}

}  // namespace orglists
