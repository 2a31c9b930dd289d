#include "Untedari.h"

#include "DefinitionPage.h"
#include "FrmEdari.h"
#include "ItemMarks.h"
#include "Malyobjectunit.h"
#include "PeopleCodes.h"

definition::DefinitionPage* _FrmEdari = nullptr;

namespace orglists {
namespace {

const QString kCombo = QStringLiteral("cmbEdari");
constexpr int kTitleWidth = 200;  // of the name on lists with further columns
constexpr int kAmountWidth = 88;  // what nine digits take
constexpr int kCaptionRoom = 12;  // pixels beside a caption

enum class Extra { None, JobAndMark, Amounts };

struct List {
    const char* table;
    Extra extra = Extra::None;
    // The tax lists' own, with codes that are laid down: a deletion leaves them as they are.
    bool ownCodes = false;
};

// As the combo names them.
constexpr List kLists[] = {
    {"depart"},
    {"resht_t"},
    {"resht_a"},
    {"depart_1"},
    {"resteh", Extra::None, true},
    {"semat", Extra::JobAndMark},
    {"grohpaye", Extra::Amounts},
    {"khedmat"},
    {"J_Tahsil", Extra::None, true},
};

QStringList tables() {
    QStringList names;
    for (const List& list : kLists)
        names.append(QLatin1String(list.table));
    return names;
}

class TFrmEdari : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

protected:
    void openData() override { openList(m_window.ComboIndex(kCombo)); }

    void reopenData() override {
        const int chosen = m_window.ComboIndex(kCombo);
        if (chosen == m_shown) {
            DefinitionPage::reopenData();
            return;
        }
        // A row that cannot be stored holds the page at its list.
        m_window.SetComboIndex(kCombo, m_shown);
        rows().checkBrowseMode();
        m_window.SetComboIndex(kCombo, chosen);
        openList(chosen);
    }

    QList<Step> followUps() override {
        return DefinitionPage::followUps() << [this] { tellMissing(); };
    }

    QList<forms::PageColumn> shownColumns() override {
        QList<forms::PageColumn> columns = DefinitionPage::shownColumns();
        widgets::GridColumn& title = columns[gridColumn(definition().fields.name)].grid;
        title.title += m_window.ComboText(kCombo);
        if (columns.size() > definition().layout->columns.size())
            title.width = kTitleWidth;
        return columns;
    }

    QList<forms::PageColumn> extraColumns() override {
        if (list().extra == Extra::JobAndMark)
            return forms::sematColumns();
        return list().extra == Extra::Amounts ? amountColumns() : QList<forms::PageColumn>();
    }

    bool renumbers() const override { return !list().ownCodes; }

    // Everybody keeps the job, grade and place that he had, under its new code.
    void followMoves(const definition::RowMoves& moved) override {
        movePeopleCodes(db(), rows().tableName(), moved.codes);
    }

    void describeGrid(TGridProperty& property) override { property.exportName = rows().tableName(); }

private:
    const List& list() const { return kLists[m_shown]; }

    void openList(int chosen) {
        rows().close();
        m_shown = qBound(0, chosen, static_cast<int>(std::size(kLists)) - 1);
        m_missing.clear();
        m_untold = true;
        openTable(QLatin1String(list().table));
    }

    // Once, when the list is chosen.
    void tellMissing() {
        if (std::exchange(m_untold, false) && !m_missing.isEmpty())
            throw data::Refusal(
                "جدول گروه(پايه) براي اين اقلام حقوق ستون مبلغ ندارد و مبلغ آنها نشان داده نمي شود: " +
                m_missing.join(QStringLiteral("، ")));
    }

    // An amount a salary item, as far as the table has a column for it.
    QList<forms::PageColumn> amountColumns() {
        opening().run([this] { m_items = definition::itemNames(db(), month()); });
        QList<forms::PageColumn> columns;
        m_missing.clear();
        int place = 0;
        for (const QString& name : m_items) {
            const QString field = "code_" + QString::number(++place);
            const int width = grid().fontMetrics().horizontalAdvance(name) + kCaptionRoom;
            if (rows().columnIndex(field) < 0)
                m_missing.append(name);
            else
                columns.append(forms::numberColumn(field, name, qMax(kAmountWidth, width), {}));
        }
        return columns;
    }

    int m_shown = 0;
    QStringList m_items;    // the month's, as they were read last
    QStringList m_missing;  // those without a column
    bool m_untold = false;  // that they are missing
};

}  // namespace

const definition::PageDefinition& frmEdari() {
    static const definition::PageDefinition page = {
        .layout = &forms::frmEdari(),
        .kind = definition::PageKind::Direct,
        .lists = tables(),
        .messages = {.emptyName = QStringLiteral("شرح خالي مي باشد"),
                     .repeatedName = QStringLiteral(" شرح تکراري مي باشد"),
                     .inUse = QStringLiteral(" گردش دارد ")},
        .noHint = QStringLiteral(" "),
        .pageKey = QStringLiteral("Edari"),
        .reportTitle = QStringLiteral(" اطلاعات اداري "),
        .make = definition::made<TFrmEdari>,
    };
    return page;
}

}  // namespace orglists
