#include "FrmVam.h"

#include "BankForms.h"
#include "CodeMove.h"
#include "DatabaseHelpers.h"
#include "ModuleVariables.h"
#include "Untdefine.h"

namespace payitems {
namespace {

// Digits that an instalment can have, and what a new kind starts with.
constexpr int kAmountDigits = 9;
constexpr int kMaxKinds = 99;

const QString kFileName = QStringLiteral("FileName");
const QString kCodeBefore = QStringLiteral("Codetemp");

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

QString numbers(const QSet<qint64>& codes) {
    QStringList texts;
    for (const qint64 code : codes)
        texts.append(QString::number(code));
    texts.sort();
    return texts.join(u',');
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
    void OpenData() override {
        DefinitionPage::OpenData();
        m_stored.clear();
        const int code = rows().columnIndex(kCodeBefore);
        for (int row = 0; row < rows().recordCount(); ++row)
            m_stored.append(rows().valueAt(row, code).toLongLong());
    }

    // Loans are kept under the code that the kind had when the copy was made.
    bool InUse() override {
        const qint64 code = codeBefore();
        if (code == 0)
            return false;
        data::Query loans(_MyDatabase->Connection);
        loans.setSql("select * from [Vam] where code_Vam= " + QString::number(code) +
                     " And Mablagh_g+Mablagh_m1+Mablagh_k>0" + inMonth());
        loans.open();
        return !loans.isEmpty();
    }

    // The loans and the layouts of the month's kinds follow them; those of deleted kinds go.
    void FollowConfirm(const QList<definition::ItemCode>& items) override {
        constexpr qint64 taken = -1;
        data::HostDatabase& db = *_MyDatabase;
        Exec_Sql(db, "Update Payvam Set Codetemp=NULL where" + inMonth().mid(QStringLiteral(" And").size()));
        QList<qint64> left = m_stored;
        QSet<qint64> kept = {0};
        QList<layouts::LayoutMove> moves;
        for (const definition::ItemCode& item : items) {
            const auto place = left.indexOf(item.before);
            if (place >= 0)
                left[place] = taken;
            kept.insert(item.before);
            moves.append({static_cast<int>(place) + 1, static_cast<int>(moves.size()) + 1});
        }
        QSet<qint64> cleared;
        for (int place = 0; place < left.size(); ++place) {
            if (left[place] == taken)
                continue;
            moves.append({place + 1, 0});
            cleared.insert(left[place]);
        }
        // What stands under a kind's new code and is no kind's must not become that kind's.
        for (const definition::ItemCode& item : items)
            if (item.before != 0 && item.before != item.now)
                cleared.insert(item.now);
        cleared -= kept;
        if (!cleared.isEmpty())
            Exec_Sql(db, "Delete From Vam Where Code_vam In (" + numbers(cleared) + ')' + inMonth());
        definition::moveCodes(db, QStringLiteral("Vam"), QStringLiteral("Code_Vam"), items, inMonth());
        layouts::moveBankLayouts(db, layouts::BankFile::Loan, moves);
    }

    void Confirmed(const QList<definition::ItemCode>& items) override {
        m_stored.clear();
        for (const definition::ItemCode& item : items)
            m_stored.append(item.now);
    }

    void DoubleClick(int column) override {
        if (definition().layout->columns[column].grid.field == kFileName)
            openLayout();
        else
            DefinitionPage::DoubleClick(column);
    }

private:
    qint64 codeBefore() { return rows().text(kCodeBefore).toLongLong(); }
    QString inMonth() const { return " And CodeMah=" + data::quoted(m_window.Month_Curent()); }

    // A layout is named by its kind's place as it is stored: until the kind stands there, it has none.
    void openLayout() {
        if (rows().isEmpty())
            return;
        const bool isNew = rows().state() == data::Dataset::State::Insert;
        if (!isNew)
            rows().checkBrowseMode();
        if (isNew || codeBefore() == 0 || m_stored.value(rows().row()) != codeBefore()) {
            showError(
                QStringLiteral("اين وام هنوز تاييد نشده يا جاي آن عوض شده است. ابتدا دكمه تاييد را "
                               "بزنيد، سپس ساختار فايل آن را باز كنيد."));
            return;
        }
        layouts::openBankLayout(layouts::BankFile::Loan, rows().recNo());
    }

    QList<qint64> m_stored;  // the codes of the month's kinds as they are stored, in the order of the rows
};

}  // namespace

definition::DefinitionPage* frmVam(BaseWindow& window, definition::DefinitionPage** variable,
                                   QWidget* parent) {
    return new VamPage(window, variable, parent);
}

}  // namespace payitems
