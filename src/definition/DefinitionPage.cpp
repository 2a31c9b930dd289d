#include "DefinitionPage.h"

#include <QGuiApplication>
#include <QPushButton>

#include "AmountMove.h"
#include "DatabaseHelpers.h"
#include "EventBoundary.h"
#include "FormLook.h"
#include "Malyobjectunit.h"
#include "ModuleVariables.h"
#include "PostErrors.h"
#include "TextHelpers.h"
#include "Untfmsg.h"

namespace definition {
namespace {

const QString kDescription = QStringLiteral("Desk");
const QString kCodeBefore = QStringLiteral("Codetemp");
const QString kMonth = QStringLiteral("Codemah");
const QString kError = QStringLiteral("1ER");
const QString kNoHint = QStringLiteral("     ");
constexpr int kNameColumn = 1;
constexpr int kDeleteImage = 10;

void showError(const QString& text) {
    Show_Msg(text, QString(), kError);
}

}  // namespace

DefinitionPage::DefinitionPage(const PageDefinition& definition, BaseWindow& window,
                               DefinitionPage** variable, QWidget* parent)
    : Form(definition.layout->className, parent),
      m_window(window),
      m_definition(definition),
      m_variable(variable) {
    setCaption(definition.layout->caption);
    buildComponents();
    connectEvents();
}

DefinitionPage::~DefinitionPage() {
    if (m_variable)
        *m_variable = nullptr;
}

void DefinitionPage::buildComponents() {
    const forms::PageLayout& layout = *m_definition.layout;
    forms::buildComponents(*this, forms::pageComponents(layout));
    m_grid = component<widgets::DataGrid>(layout.gridName);
    m_status = component<widgets::Panel>(QStringLiteral("plStatus"));
    m_status->setFont(widgets::formFont(11));
    m_confirm = component<QPushButton>(layout.confirmName);
    QList<widgets::GridColumn> columns;
    for (const forms::PageColumn& column : layout.columns)
        columns.append(column.grid);
    m_grid->setGridColumns(columns);
    m_grid->setDataset(&m_rows);
}

void DefinitionPage::connectEvents() {
    onShow = [this] { OpenPage(); };
    onActivate = [this] { ActivatePage(); };
    m_rows.beforeInsert = [this] { beforeInsert(); };
    m_rows.afterInsert = [this] { NumberNewRow(); };
    m_rows.beforePost = [this] { ValidateRow(); };
    m_rows.afterPost = [this] { rememberDescription(); };
    m_rows.beforeScroll = [this] { LastCode = static_cast<qint32>(currentCode()); };
    m_rows.afterScroll = [this] { RememberRow(); };
    m_rows.afterCancel = [this] { ShowColumnHint(); };
    m_grid->onKeyDown = [this](QKeyEvent& key) { return GridKeys(key); };
    if (m_definition.fixesKeys)
        m_grid->onKeyPress = [](QChar key) { return Fix_Persian_Key(*_Global, key); };
    m_grid->onCellClick = [this](int column) { ColumnMode(column); };
    m_grid->onDoubleClick = [this](int column) { DoubleClick(column); };
    m_grid->onColumnEnter = [this](int column) {
        ColumnMode(column);
        ShowColumnHint();
    };
    m_grid->onColumnExit = [this](int column) { ColumnExit(column); };
    m_grid->onEnter = [this] { ColumnMode(m_grid->selectedColumn()); };
    m_grid->beforePopup = [this] { BuildPopup(); };
    connect(m_confirm, &QPushButton::clicked, this,
            [this] { widgets::EventBoundary::run([this] { ConfirmPage(); }); });
}

void DefinitionPage::OpenPage() {
    Set_Form_Colors(*_Global, *this);
    widgets::EventBoundary::install(this,
                                    [this](const data::ServerError& error) { PostErrorHandler(error); });
    m_grid->setPopupEnabled(_Global->Popups_Allowed);
    // A page that the user has no right to stays empty.
    if (!parentWidget()->isEnabled())
        return;
    // The work copy lives as long as the page: showing it again keeps what the operator has done.
    if (!m_rows.active())
        OpenData();
    BuildPopup();
    ShowColumnHint();
    m_grid->setFocus();
}

void DefinitionPage::OpenData() {
    data::HostDatabase& db = *_MyDatabase;
    m_copy.drop(db);  // left by an opening that failed half-way
    // One transaction, so that the disk is waited for once.
    data::Transaction transaction(*db.Connection);
    for (const QString& upgrade : m_definition.upgrades)
        Exec_Sql(db, upgrade);
    m_copy.create(db, freeTableName(db, *_Global, QString()),
                  m_definition.table + " Where Codemah=" + data::quoted(m_window.Month_Curent()));
    Exec_Sql(db, "Update " + m_copy.name() + " Set Codetemp=" + m_definition.codeField);
    transaction.commit();
    m_rows.setConnection(db.Connection);
    m_rows.setTableName(m_copy.name());
    m_rows.setIndexFieldNames(m_definition.codeField);
    m_rows.open();
    rememberDescription();
}

void DefinitionPage::ActivatePage() {
    if (m_rows.active())
        LastCode = static_cast<qint32>(currentCode());
}

void DefinitionPage::beforeInsert() {
    if (m_definition.newRow == NewRow::AfterLastRow)
        m_rows.last();
    else if (currentCode() != m_rows.recordCount())
        throw data::SilentAbort();
}

void DefinitionPage::NumberNewRow() {
    if (m_rows.recordCount() > m_definition.maxRows) {
        m_rows.cancel();
        m_grid->setFocus();
        return;
    }
    m_rows.setValue(m_definition.codeField, LastCode + 1);
    for (const auto& [column, value] : m_definition.defaults)
        m_rows.setValue(column, value);
    m_rows.setValue(kMonth, m_window.Month_Curent());
}

void DefinitionPage::CorrectRow() {
    for (const auto& [column, limit] : m_definition.limits)
        if (m_rows.value(column).toDouble() > limit)
            m_rows.setValue(column, limit);
}

void DefinitionPage::ValidateRow() {
    m_rows.edit();
    CorrectRow();
    const PageMessages& messages = m_definition.messages;
    const QString description = m_rows.text(kDescription);
    if (!messages.emptyCode.isEmpty() && m_rows.text(m_definition.codeField).trimmed().isEmpty())
        refuseRow(messages.emptyCode);
    if (Strip_Blanks(description).isEmpty())
        refuseRow(messages.emptyName);
    if (Strip_Blanks(description) != Strip_Blanks(OldDesk) &&
        Is_Name_Repeated(*_MyDatabase, m_rows.tableName(), kDescription, description))
        refuseRow(messages.repeatedName);
}

void DefinitionPage::refuseRow(const QString& text) {
    const QPointer<widgets::DataGrid> grid(m_grid);
    showError(text);
    if (grid) {
        grid->selectColumn(kNameColumn);
        grid->setFocus();
    }
    throw data::SilentAbort();
}

void DefinitionPage::RememberRow() {
    ShowColumnHint();
    rememberDescription();
}

void DefinitionPage::rememberDescription() {
    OldDesk = m_rows.text(kDescription);
}

qint64 DefinitionPage::currentCode() const {
    return m_rows.text(m_definition.codeField).trimmed().toLongLong();
}

void DefinitionPage::DeleteRow() {
    if (m_rows.isEmpty())
        return;
    data::HostDatabase& db = *_MyDatabase;
    const QString& amounts = m_definition.amounts.name;
    const qint64 codeBefore = m_rows.text(kCodeBefore).trimmed().toLongLong();
    const QString column = "code_" + QString::number(codeBefore);
    if (codeBefore != 0 && Is_Column_Exist(db, amounts, column) && m_window.HasTurnover(amounts, column)) {
        showError(m_definition.messages.inUse);
        return;
    }
    if (Show_Msg(QStringLiteral("آيا كد مورد نظر حذف شود"), QString(), QStringLiteral("3QC")) !=
        widgets::mrYes)
        return;
    try {
        data::Transaction transaction(*db.Connection);
        m_rows.deleteRow();
        renumber();
        transaction.commit();
    } catch (...) {
        // The row is back; one whose deletion itself was refused never went, and keeps its edits.
        if (m_rows.state() == data::Dataset::State::Browse)
            m_rows.refresh();
        throw;
    }
    m_rows.first();
}

void DefinitionPage::renumber() {
    const int code = m_rows.columnIndex(m_definition.codeField);
    for (int row = 0; row < m_rows.recordCount(); ++row)
        if (m_rows.valueAt(row, code) != QVariant(row + 1))
            m_rows.updateSilently(row, m_definition.codeField, row + 1);
}

void DefinitionPage::ConfirmPage() {
    m_confirm->setEnabled(false);
    const auto enableAgain = qScopeGuard([confirm = QPointer(m_confirm)] {
        if (confirm)
            confirm->setEnabled(true);
    });
    if (!m_rows.active())
        return;
    m_rows.checkBrowseMode();
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto pointAgain = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    storeWorkCopy();
    m_rows.refresh();
}

void DefinitionPage::storeWorkCopy() {
    data::HostDatabase& db = *_MyDatabase;
    const QString& month = m_window.Month_Curent();
    const QString& code = m_definition.codeField;
    data::Query items(db.Connection);
    items.setSql("Select " + code + ", Codetemp From " + m_copy.name() + " order by " + code);
    QList<ItemCode> codes;
    for (items.open(); !items.eof(); items.next())
        codes.append({items.integer(0), items.integer(1)});

    data::Transaction transaction(*db.Connection);
    Exec_Sql(db, "delete from " + m_definition.table + " where codemah = " + data::quoted(month));
    Exec_Sql(db, "insert into " + m_definition.table + " select * from " + m_copy.name());
    moveAmounts(db, m_definition.amounts, month, codes);
    data::Query scratch(db.Connection);
    for (const QString& table : m_definition.upgradesAfterConfirm)
        Add_PayItem_Columns(db, table, scratch, month);
    // From here on the codes are the stored ones: confirming again moves nothing twice.
    Exec_Sql(db, "Update " + m_copy.name() + " Set Codetemp=" + code);
    transaction.commit();
}

void DefinitionPage::ShowColumnHint() {
    QString hint = m_definition.layout->columns.value(m_grid->selectedColumn()).hint;
    hint.replace(QLatin1String("{D}"), u'(' + m_rows.text(kDescription).trimmed() + u')');
    m_status->setCaption(hint.isEmpty() ? kNoHint : hint);
}

void DefinitionPage::BuildPopup() {
    QMenu& menu = *m_grid->popupMenu();
    menu.clear();
    TMalyObject& services = m_window.MalyObject();
    const QString& key = m_definition.codeField;
    services.Property = {.grid = m_grid,
                         .keyColumn = key,
                         .sortColumn = key,
                         .program = QStringLiteral("J"),
                         .item = QStringLiteral("BASE"),
                         .form = m_definition.pageKey,
                         .part = QStringLiteral("1"),
                         .reportTitle1 = m_definition.reportTitle,
                         .reportTitle2 = m_definition.reportTitle,
                         .table = m_rows.tableName()};
    TMalyObject::Add_Item(menu, QStringLiteral("حذف"), kDeleteImage, QKeySequence(Qt::CTRL | Qt::Key_Delete),
                          [this] { DeleteRow(); });
}

void DefinitionPage::PostErrorHandler(const data::ServerError& error) {
    showError(postErrorText(error));
}

void DefinitionPage::ClosePage() {
    m_rows.close();
    m_copy.drop(*_MyDatabase);
}

}  // namespace definition
