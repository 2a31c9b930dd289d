#include "DefinitionPage.h"

#include <QPushButton>

#include "DatabaseHelpers.h"
#include "EventBoundary.h"
#include "FormLook.h"
#include "GridState.h"
#include "ItemMarks.h"
#include "Malyobjectunit.h"
#include "PageFeatures.h"
#include "PostErrors.h"
#include "TextHelpers.h"
#include "Untfmsg.h"

namespace definition {
namespace {

constexpr int kDeleteImage = 10;
constexpr int kNoImage = -1;
// Standard entries that the pages do without: deleting, filter and row memory of the menu object know
// nothing of a page's rules, and there is one way to sort and one to print.
constexpr int kRemovedImages[] = {10, 11, 8, 9, 41, 40};
// What the suite calls the component behind the grid; exported files bear its name.
const QString kWorkTable = QStringLiteral("Table2");
const QString kStoredTable = QStringLiteral("Table1");

}  // namespace

DefinitionPage::DefinitionPage(const PageDefinition& definition, BaseWindow& window,
                               DefinitionPage** variable, QWidget* parent)
    : Form(definition.layout->className, parent),
      m_window(window),
      m_definition(definition),
      m_variable(variable),
      m_history(m_rows) {
    setCaption(definition.layout->caption);
    m_history.remember = [this] { return std::any(std::pair(m_copy.copied(), LastCode)); };
    m_history.recall = [this](const std::any& memory) {
        const auto& [copied, code] = std::any_cast<const std::pair<CopiedRows, qint32>&>(memory);
        m_copy.recall(copied);
        LastCode = code;
    };
    m_marks.editList = [this](const forms::PageColumn& mark) { editDetailList(mark); };
    buildComponents();
    connectEvents();
}

DefinitionPage::~DefinitionPage() {
    if (m_variable && *m_variable == this)
        *m_variable = nullptr;
}

void DefinitionPage::buildComponents() {
    const forms::PageLayout& layout = *m_definition.layout;
    forms::buildComponents(*this, forms::pageComponents(layout));
    m_grid = component<widgets::DataGrid>(layout.gridName);
    m_grid->setAccessibleName(layout.caption);
    m_status = component<widgets::Panel>(QStringLiteral("plStatus"));
    m_status->setFont(widgets::formFont(11));
    m_advice = new forms::AdviceLabel(*m_status);
    m_confirm = component<QPushButton>(layout.confirmName);
    setTabOrder(m_grid, m_confirm);
    m_rows.setObjectName(m_definition.kind == PageKind::WorkCopy ? kWorkTable : kStoredTable);
    m_columns = layout.columns;
    setGridColumns();
    m_grid->setDataset(&m_rows);
}

void DefinitionPage::connectEvents() {
    onShow = [this] { OpenPage(); };
    onActivate = [this] {
        m_opening.run([this] { ActivatePage(); });
        m_opening.tell();
    };
    m_rows.beforeInsert = [this] { beforeInsert(); };
    m_rows.afterInsert = [this] { NumberNewRow(); };
    m_rows.beforePost = [this] { ValidateRow(); };
    if (m_definition.listsOwnRows)
        m_rows.duringPost = [this] { m_ownLists.freeNewCode(); };
    if (m_definition.kind == PageKind::Direct)
        m_rows.beforeStore = [this] { numberStoredRow(); };
    m_rows.beforeScroll = [this] { RememberRow(); };
    m_rows.afterScroll = [this] { ShowColumnHint(); };
    for (const auto signal : {&data::Dataset::rowsReset, &data::Dataset::cursorMoved})
        connect(&m_rows, signal, this, [this] { adviseOnRows(*this); });
    for (const auto signal :
         {&data::Dataset::rowChanged, &data::Dataset::rowRemoved, &data::Dataset::rowInserted})
        connect(&m_rows, signal, this, [this] { adviseOnRows(*this); });
    m_rows.afterCancel = [this] { ShowColumnHint(); };
    m_grid->onKeyDown = [this](QKeyEvent& key) { return GridKeys(key); };
    if (m_definition.fixesKeys)
        m_grid->onKeyPress = [this](QChar key) { return Fix_Persian_Key(global(), key); };
    m_grid->onCellClick = [this](int column) { ColumnMode(column); };
    m_grid->onDoubleClick = [this](int column) { doubleClick(column); };
    m_grid->onColumnEnter = [this](int column) {
        ColumnMode(column);
        ShowColumnHint();
    };
    m_grid->onColumnExit = [this](int column) { leaveColumn(column); };
    m_grid->onEnter = [this] { ColumnMode(m_grid->selectedColumn()); };
    m_grid->beforePopup = [this] { buildMenu(); };
    connect(m_confirm, &QPushButton::clicked, this,
            [this] { widgets::EventBoundary::run([this] { ConfirmPage(); }); });
}

void DefinitionPage::setGridColumns() {
    QList<widgets::GridColumn> columns;
    for (const forms::PageColumn& column : m_columns)
        columns.append(column.grid);
    m_grid->setGridColumns(columns);
}

void DefinitionPage::OpenPage() {
    Set_Form_Colors(global(), *this);
    widgets::EventBoundary::install(this,
                                    [this](const data::ServerError& error) { PostErrorHandler(error); });
    m_grid->setPopupEnabled(global().Popups_Allowed);
    // A page that the user has no right to stays empty.
    if (parentWidget()->isEnabled())
        showPage();
}

void DefinitionPage::showPage() {
    m_opening.run([this] { openRows(); });
    m_opening.run([this] { showColumns(); });
    m_opening.run([this] { ShowColumnHint(); });
    m_grid->setFocus();
    for (const Step& step : followUps())
        m_opening.run(step);
}

void DefinitionPage::openRows() {
    // The work copy lives as long as the page: showing it again keeps what the operator has done.
    if (m_rows.active())
        return reopenData();
    try {
        openData();
    } catch (...) {
        m_rows.close();  // rows without what the page knows of them are none
        throw;
    }
}

QList<DefinitionPage::Step> DefinitionPage::followUps() {
    // Once there, it is built anew when it opens, and at its keys.
    return {[this] {
        if (m_grid->popupMenu()->isEmpty())
            buildMenu();
    }};
}

void DefinitionPage::openData() {
    if (m_definition.kind == PageKind::WorkCopy) {
        m_opening.run([this] { m_copy.drop(db()); });  // left by an opening that failed half-way
        upgradeTable();
        m_copy.make(host(), month());
        openTable(m_copy.name());
        m_copy.remember(m_rows);
        m_history.begin(*m_grid);
        m_reconnection.emplace(
            *db().Connection, [this] { return settleConfirm(); },
            [this] {
                m_copy.restore(db(), m_rows);
                if (std::exchange(m_forgetsSteps, false))
                    m_history.begin(*m_grid);
            });
    } else {
        upgradeTable();
        if (m_definition.monthRows)
            m_rows.setFilter("Codemah=" + data::quoted(month()));
        openTable(m_definition.table);
    }
}

void DefinitionPage::reopenData() {
    // The month's items may have changed since the page was left.
    if (m_definition.itemMarks || !m_upgraded) {
        upgradeTable();
        if (m_definition.kind == PageKind::WorkCopy)
            m_opening.run([this] { completeCopy(); });
    }
    if (m_definition.kind == PageKind::Direct && m_rows.state() == data::Dataset::State::Browse)
        m_rows.refresh();
}

void DefinitionPage::openTable(const QString& table) {
    m_rows.setConnection(db().Connection);
    m_rows.setTableName(table);
    m_rows.setIndexFieldNames(m_definition.fields.order);
    m_rows.open();
}

// The rows can be shown without what an older company's table lacks.
void DefinitionPage::upgradeTable() {
    if (!m_upgraded) {
        m_upgraded = true;
        for (const QString& upgrade : m_definition.upgrades)
            if (!m_opening.run([&] { Exec_Sql(db(), upgrade); }))
                m_upgraded = false;
    }
    m_marked.reset();
    if (m_definition.itemMarks)
        m_opening.run([this] { m_marked = openMarkedTable(db(), m_definition.table, month()); });
}

// Gives the work copy the columns that its table has got since it was made.
void DefinitionPage::completeCopy() {
    const QList<data::ColumnInfo> columns =
        m_marked ? m_marked->columns
                 : db().Connection->execute("Select * From " + m_definition.table + " Where 1=0").columns;
    // A row in edit that could not be stored has kept the columns from being seen.
    if (m_copy.complete(db(), columns) != m_rows.columns().size())
        m_rows.refresh();
}

QList<forms::PageColumn> DefinitionPage::shownColumns() {
    return m_definition.layout->columns + extraColumns();
}

QList<forms::PageColumn> DefinitionPage::extraColumns() {
    if (!m_definition.itemMarks)
        return {};
    return itemMarks(m_marked ? m_marked->items : itemNames(db(), month()), m_rows);
}

void DefinitionPage::showColumns() {
    QList<forms::PageColumn> columns = m_columns;
    m_opening.run([&] { columns = shownColumns(); });
    const auto same = [](const forms::PageColumn& one, const forms::PageColumn& other) {
        return one.grid.field == other.grid.field && one.grid.title == other.grid.title;
    };
    if (!std::equal(columns.begin(), columns.end(), m_columns.begin(), m_columns.end(), same)) {
        m_columns = columns;
        setGridColumns();
        m_laidOut = false;
    }
    if (m_laidOut)
        return;
    try {
        Restore_Grid_State(db(), global(), *m_grid, layoutKey());
        m_laidOut = true;
    } catch (const data::ServerError&) {
        // They stand as designed until the next show.
    }
}

GridStateKey DefinitionPage::layoutKey() const {
    return {QStringLiteral("J"), QStringLiteral("BASE"), m_definition.pageKey, QStringLiteral("1")};
}

void DefinitionPage::ActivatePage() {
    if (m_rows.active())
        LastCode = static_cast<qint32>(currentCode());
}

void DefinitionPage::ShowColumnHint() {
    QString hint = worded(m_columns.value(m_grid->selectedColumn()).hint);
    hint.replace(QLatin1String("{D}"), u'(' + m_rows.text(m_definition.fields.name).trimmed() + u')');
    m_status->setCaption(hint.isEmpty() ? m_definition.noHint : hint);
}

void DefinitionPage::buildMenu() {
    BuildPopup();
    addFeatures(*this);
}

void DefinitionPage::BuildPopup() {
    QMenu& menu = *m_grid->popupMenu();
    menu.clear();
    if (!m_rows.active())
        return;
    const GridStateKey key = layoutKey();
    TMalyObject& services = m_window.MalyObject();
    services.Property = {.host = host(),
                         .grid = m_grid,
                         .program = key.program,
                         .item = key.item,
                         .form = key.form,
                         .part = key.part,
                         .reportTitle1 = worded(m_definition.reportTitle),
                         .reportTitle2 = worded(m_definition.reportTitle),
                         .keyColumn = m_definition.fields.code,
                         .sortColumn = m_definition.fields.code,
                         .table = m_rows.tableName(),
                         .pasteBlock = [this] { return pasteBlock(); },
                         .exportName = m_definition.table};
    describeGrid(services.Property);
    services.Build(menu);
    for (const int image : kRemovedImages)
        TMalyObject::Remove_Item(menu, image);
    if (m_definition.deletion != Deletion::NotOffered)
        TMalyObject::Add_Item(menu, QStringLiteral("حذف"), kDeleteImage,
                              QKeySequence(Qt::CTRL | Qt::Key_Delete), [this] { DeleteRow(); });
}

void DefinitionPage::addRowEntry(const QString& caption, const QKeySequence& shortcut,
                                 std::function<void()> action) {
    QMenu& menu = *m_grid->popupMenu();
    if (!menu.isEmpty())
        TMalyObject::Add_Item(menu, caption, kNoImage, shortcut, std::move(action))
            ->setEnabled(!m_rows.isEmpty());
}

void DefinitionPage::PostErrorHandler(const data::ServerError& error) {
    showError(postErrorText(error, m_definition.tellsRepeatedKeys));
}

void DefinitionPage::showError(const QString& text) {
    Show_Msg(text, QString(), QStringLiteral("1ER"));
}

bool DefinitionPage::storeRow() {
    if (m_definition.kind != PageKind::Direct)
        return true;
    return widgets::EventBoundary::run([this] {
        try {
            m_rows.checkBrowseMode();
        } catch (const data::ServerError& error) {
            // In this page's words, whichever page is in front.
            widgets::EventBoundary::tell(
                error, [this](const data::ServerError& refused) { PostErrorHandler(refused); });
            throw data::SilentAbort();
        }
    });
}

void DefinitionPage::ClosePage() {
    m_reconnection.reset();
    m_rows.close();
    m_copy.drop(db());
}

void DefinitionPage::advise(const QString& text, std::function<void()> follow) {
    m_advice->advise(text, std::move(follow));
}

int DefinitionPage::gridColumn(const QString& field) const {
    for (int column = 0; column < m_columns.size(); ++column)
        if (m_columns[column].grid.field.compare(field, Qt::CaseInsensitive) == 0)
            return column;
    return -1;
}

void DefinitionPage::showErrorAt(const QString& text, const QString& field) {
    showError(text);
    m_grid->selectColumn(gridColumn(field));
    m_grid->setFocus();
}

void DefinitionPage::refuseRow(const QString& text, const QString& field) {
    showErrorAt(text, field.isEmpty() ? m_definition.fields.name : field);
    throw data::SilentAbort();
}

DefinitionPage* makePage(const PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
                         QWidget* parent) {
    return made<DefinitionPage>(definition, window, variable, parent);
}

}  // namespace definition
