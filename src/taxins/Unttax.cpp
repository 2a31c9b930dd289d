#include "Unttax.h"

#include <QPushButton>

#include "EventBoundary.h"
#include "FrmTax.h"
#include "Malyobjectunit.h"
#include "TaxPage.h"
#include "Untdefmalydisk.h"

definition::DefinitionPage* _FrmTax = nullptr;

namespace taxins {
namespace {

constexpr int kNoImage = -1;

// The layouts behind the columns of file names.
struct FileLayout {
    QString field, table, caption;
};
const FileLayout kFiles[] = {{"Taxfile1", "BCK_TAX1", "         اطلاعات حقوق بگير"},
                             {"Taxfile2", "BCK_TAX2", "         اقلام حقوق و دستمزد"},
                             {"Taxfile3", "BCK_TAX3", "         اطلاعات فايل خلاصه"}};

}  // namespace

TFrmTax::TFrmTax(const definition::PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
                 QWidget* parent)
    : DefinitionPage(definition, window, variable, parent), m_deleted(definition.table) {
    grid().setEditing(false);
    // The layouts can be looked at before there is a bracket.
    grid().onEmptyDoubleClick = [this](int column) { doubleClick(column); };
    rows().afterEdit = [this] { knowBracket(); };
    m_deleteTable = component<QPushButton>(forms::kDeleteTaxTable);
    m_deleteTable->setEnabled(false);
    connect(m_deleteTable, &QPushButton::clicked, this,
            [this] { widgets::EventBoundary::run([this] { deleteTable(); }); });
}

QList<definition::DefinitionPage::Step> TFrmTax::followUps() {
    const auto prepare = [this] {
        QStringList tables;
        for (const FileLayout& file : kFiles)
            tables.append(file.table);
        if (opening().run([&] { layouts::prepareTaxLayouts(db(), tables); }))
            return;
        // One that is refused does not keep the others from being made.
        for (const QString& table : tables)
            opening().run([&] { layouts::prepareTaxLayouts(db(), {table}); });
    };
    return DefinitionPage::followUps() << prepare;
}

void TFrmTax::ShowColumnHint() {
    DefinitionPage::ShowColumnHint();
    m_deleteTable->setEnabled(!rows().isEmpty());
}

void TFrmTax::doubleClick(int column) {
    for (const FileLayout& file : kFiles)
        if (file.field == fieldAt(column))
            return layouts::openTaxLayout(host(), file.table, file.caption, rows().text(file.field));
}

void TFrmTax::deleteTable() {
    if (rows().state() == data::Dataset::State::Insert)
        rows().cancel();
    if (rows().isEmpty())
        return;
    changeTable(&ClearedRows::clear);
    m_remembered = {};
    LastCode = 0;
}

void TFrmTax::restoreTable() {
    rows().checkBrowseMode();
    changeTable(&ClearedRows::restore);
}

void TFrmTax::changeTable(void (ClearedRows::*change)(data::HostDatabase&)) {
    ClearedRows deleted = m_deleted;
    rows().transact([&] { (deleted.*change)(db()); }, data::Dataset::After::FirstRow);
    m_deleted = deleted;
    ShowColumnHint();
    grid().setFocus();
}

void TFrmTax::BuildPopup() {
    DefinitionPage::BuildPopup();
    if (rows().active() && !m_deleted.isEmpty())
        TMalyObject::Add_Item(*grid().popupMenu(), QStringLiteral("بازگشت جدول حذف شده"), kNoImage, {},
                              [this] { restoreTable(); });
}

const definition::PageDefinition& frmTax() {
    static const definition::PageDefinition page = {
        .layout = &forms::frmTax(),
        .kind = definition::PageKind::Direct,
        .table = QStringLiteral("Tax"),
        .fields = {.code = QStringLiteral("Code"), .name = {}, .order = {}},
        .newRow = definition::NewRow::FromAnyRow,
        .deletion = definition::Deletion::NotOffered,
        .messages = {},
        .tellsRepeatedKeys = false,
        .brackets = definition::BracketFields{QStringLiteral("Mablagh_1"), QStringLiteral("Mablagh_2"),
                                              QStringLiteral("Percent"), QStringLiteral("Mab_tax")},
        .pageKey = QStringLiteral("Tax"),
        .reportTitle = QStringLiteral(" مشخصات ماليات "),
        .make = definition::made<TFrmTax>,
    };
    return page;
}

}  // namespace taxins
