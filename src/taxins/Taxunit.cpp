#include "Taxunit.h"

#include <QPushButton>

#include "EventBoundary.h"
#include "FrmTax.h"
#include "Malyobjectunit.h"
#include "ModuleVariables.h"
#include "TaxPage.h"
#include "Untdefmalydisk.h"

namespace taxins {
namespace {

const definition::PageDefinition& declaration() {
    static const definition::PageDefinition page = {
        .layout = &forms::frmTax(),
        .kind = definition::PageKind::Direct,
        .table = QStringLiteral("Tax"),
        .fields = {.code = QStringLiteral("Code"), .name = {}, .order = {}},
        .newRow = definition::NewRow::FromAnyRow,
        .deletion = definition::Deletion::NotOffered,
        .messages = {},
        .tellsRepeatedKeys = false,
        .pageKey = QStringLiteral("Tax"),
        .reportTitle = QStringLiteral(" مشخصات ماليات "),
    };
    return page;
}

constexpr int kFirstFileColumn = 5;
constexpr int kNoImage = -1;

// The layouts behind the columns of file names, in their order.
struct FileLayout {
    QString table, caption;
};
const FileLayout kFiles[] = {{"BCK_TAX1", "         اطلاعات حقوق بگير"},
                             {"BCK_TAX2", "         اقلام حقوق و دستمزد"},
                             {"BCK_TAX3", "         اطلاعات فايل خلاصه"}};

}  // namespace

FrmTax::FrmTax(BaseWindow& window, definition::DefinitionPage** variable, QWidget* parent)
    : DefinitionPage(declaration(), window, variable, parent), m_deleted(declaration().table) {
    grid().setEditing(false);
    // The layouts can be looked at before there is a bracket.
    grid().onEmptyDoubleClick = [this](int column) { DoubleClick(column); };
    rows().afterEdit = [this] { knowBracket(); };
    m_deleteTable = component<QPushButton>(forms::kDeleteTaxTable);
    m_deleteTable->setEnabled(false);
    connect(m_deleteTable, &QPushButton::clicked, this,
            [this] { widgets::EventBoundary::run([this] { DeleteTable(); }); });
}

QList<definition::DefinitionPage::Step> FrmTax::FollowUps() {
    QList<Step> steps = DefinitionPage::FollowUps();
    for (const FileLayout& file : kFiles)
        steps.append([&file] { layouts::prepareTaxLayout(*_MyDatabase, file.table); });
    return steps;
}

void FrmTax::ShowColumnHint() {
    DefinitionPage::ShowColumnHint();
    m_deleteTable->setEnabled(!rows().isEmpty());
}

void FrmTax::DoubleClick(int column) {
    const int file = column - kFirstFileColumn;
    if (file >= 0 && file < static_cast<int>(std::size(kFiles)))
        layouts::openTaxLayout(kFiles[file].table, kFiles[file].caption);
}

void FrmTax::DeleteTable() {
    if (rows().state() == data::Dataset::State::Insert)
        rows().cancel();
    if (rows().isEmpty())
        return;
    changeTable(&ClearedRows::clear);
    m_remembered = {};
    LastCode = 0;
}

void FrmTax::RestoreTable() {
    rows().checkBrowseMode();
    changeTable(&ClearedRows::restore);
}

void FrmTax::changeTable(void (ClearedRows::*change)(data::HostDatabase&)) {
    ClearedRows deleted = m_deleted;
    rows().transact([&] { (deleted.*change)(*_MyDatabase); }, data::Dataset::After::FirstRow);
    m_deleted = deleted;
    ShowColumnHint();
    grid().setFocus();
}

void FrmTax::BuildPopup() {
    DefinitionPage::BuildPopup();
    if (rows().active() && !m_deleted.isEmpty())
        TMalyObject::Add_Item(*grid().popupMenu(), QStringLiteral("بازگشت جدول حذف شده"), kNoImage, {},
                              [this] { RestoreTable(); });
}

definition::DefinitionPage* frmTax(BaseWindow& window, definition::DefinitionPage** variable,
                                   QWidget* parent) {
    return new FrmTax(window, variable, parent);
}

}  // namespace taxins
