#include "LayoutWindow.h"

#include <QAbstractButton>
#include <QPointer>
#include <QScopeGuard>
#include <QScreen>

#include "DatabaseHelpers.h"
#include "EntryKeys.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "FormLook.h"
#include "PostErrors.h"
#include "RecordPreview.h"
#include "TextHelpers.h"
#include "Untfmsg.h"

namespace layouts {
namespace {

using widgets::EventBoundary;

// Titles of the first rows are never typed over, and rows up to the tenth may be the file's own.
constexpr int kGuardedTitles = 8;
constexpr int kGuardedRows = 10;

const QString kSource = QStringLiteral("F_FIELD");
const QString kTitle = QStringLiteral("F_DES");
const QString kName = QStringLiteral("F_NAME");
const QString kLength = QStringLiteral("F_LEN");
const QString kType = QStringLiteral("F_TYPE");
const QString kError = QStringLiteral("1ER");

QList<forms::Component> components() {
    using forms::Align;
    using forms::Kind;
    return {
        {Kind::CaptionBar, "Caption_Panel", {}, Align::Top, {0, 0, 400, 24}, {}, {}},
        {Kind::Shape, "Close_Shape", "Caption_Panel", Align::None, {369, 1, 21, 21}, {}, {}},
        {Kind::CloseButton, "sb_Closed", "Caption_Panel", Align::None, {370, 2, 20, 20}, {}, "بستن فرم"},
        {Kind::LoweredPanel, "plStatus", {}, Align::Bottom, {0, 0, 400, 28}, {}, {}},
        {Kind::Grid, "DBGrid1", {}, Align::Client, {}, {}, {}},
    };
}

bool confirmed(const QString& question) {
    return Show_Msg(question, QString(), QStringLiteral("3QC")) == widgets::mrYes;
}

}  // namespace

void LayoutWindow::open(const SuiteHost& host, const LayoutDefinition& family, const LayoutFile& file,
                        widgets::Form*& variable) {
    if (variable)
        return;
    auto* window = new LayoutWindow(host, family, file, variable);
    // One that could not be shown has not been closed either.
    const auto left = qScopeGuard([&, shown = QPointer(window)] {
        if (shown && variable == shown)
            shown->retire();
    });
    window->showModal();
}

LayoutWindow::LayoutWindow(const SuiteHost& host, const LayoutDefinition& family, const LayoutFile& file,
                           widgets::Form*& variable)
    : DialogForm(family.className),
      m_database(*host.database),
      m_context(*host.context),
      m_family(family),
      m_file(file),
      m_variable(variable) {
    m_variable = this;
    setFreeOnClose(true);
    buildDialog(components());
    setCaption(m_file.caption.isEmpty() ? m_family.caption : m_file.caption);
    m_grid = component<widgets::DataGrid>(QStringLiteral("DBGrid1"));
    m_status = component<widgets::Panel>(QStringLiteral("plStatus"));
    m_status->setFont(widgets::formFont(11));
    m_advice = new forms::AdviceLabel(*m_status);
    buildGrid();
    connectEvents();
    resize(m_family.size.boundedTo(screen()->availableGeometry().size()));
}

LayoutWindow::~LayoutWindow() {
    if (m_variable == this)
        m_variable = nullptr;
}

void LayoutWindow::buildGrid() {
    QList<widgets::GridColumn> columns;
    for (const LayoutColumn& column : m_family.columns)
        columns.append(column.grid);
    m_grid->setGridColumns(columns);
    m_grid->setDataset(&m_rows);
}

void LayoutWindow::connectEvents() {
    onShow = [this] { FormShow(); };
    onActivate = [this] { m_opening.tell(); };
    onClose = [this] { return FormClose(); };
    const auto columnState = [this] { showColumnState(); };
    m_rows.beforePost = [this] { ValidateRow(); };
    m_rows.afterPost = columnState;
    m_rows.afterScroll = [this] { enterCell(); };
    m_rows.afterCancel = columnState;
    using data::Dataset;
    connect(&m_rows, &Dataset::rowsReset, this, &LayoutWindow::advise);
    for (const auto signal : {&Dataset::rowChanged, &Dataset::rowRemoved, &Dataset::rowInserted})
        connect(&m_rows, signal, this, &LayoutWindow::advise);
    m_grid->onKeyDown = [this](QKeyEvent& key) { return GridKeys(key); };
    m_grid->onKeyPress = [this](QChar key) { return Fix_Persian_Key(m_context, key); };
    m_grid->onColumnEnter = [this](int) { enterCell(); };
    m_grid->onColumnExit = [this](int column) { leaveColumn(column); };
    m_grid->onCellClick = [this](int) { showColumnState(); };
    m_grid->onDoubleClick = [this](int column) { doubleClick(column); };
    m_grid->onEnter = columnState;
    m_grid->beforePopup = [this] { BuildPopup(); };
    connect(component<QAbstractButton>(QStringLiteral("sb_Closed")), &QAbstractButton::clicked, this,
            [this] { closeForm(); });
    connect(this, &Form::closed, this, [this] { m_variable = nullptr; });
}

void LayoutWindow::FormShow() {
    EventBoundary::install(this, [](const data::ServerError& error) {
        Show_Msg(definition::postErrorText(error), QString(), kError);
    });
    Set_Form_Colors(m_context, *this);
    m_grid->setPopupEnabled(m_context.Popups_Allowed);
    m_rows.setConnection(m_database.Connection);
    m_rows.setTableName(m_file.table);
    PrepareLayouts(m_database, m_family, {m_file});
    m_rows.open();
    Set_Round_Region(rect(), *this);
    place();
    m_grid->setFocus();
    m_opening.run([this] { addMissingRows(); });
    m_history.isShared = true;
    m_history.begin(*m_grid);
    m_opening.run([this] { enterCell(); });
}

void LayoutWindow::addMissingRows() {
    const QList<SeedRow> missing = missingRows(m_database, m_file);
    const auto change = [&] { insertRows(m_database, m_family, m_file.table, missing); };
    if (!missing.isEmpty())
        m_rows.transact(change, data::Dataset::After::FirstRow);
}

void LayoutWindow::place() {
    const QRect room = screen()->availableGeometry();
    QRect window = rect();
    window.moveCenter(room.center());
    if (m_family.top)
        window.moveTop(qMin(room.top() + *m_family.top, room.bottom() + 1 - window.height()));
    move(window.topLeft());
}

bool LayoutWindow::FormClose() {
    m_rows.checkBrowseMode();
    return true;
}

// --- keys and columns -------------------------------------------------------------------------------

bool LayoutWindow::GridKeys(QKeyEvent& key) {
    m_grid->setEditing(true);
    bool dealtWith = true;
    if (definition::isEnter(key))
        pressEnter();
    else if (key.key() == Qt::Key_Insert && key.modifiers() == Qt::NoModifier)
        m_rows.append();
    else if (definition::movesAbout(key) || !isCycle(m_grid->selectedColumn()))
        dealtWith = false;
    else if (key.key() == Qt::Key_Space)
        pressSpace();
    showColumnState();
    return dealtWith;
}

void LayoutWindow::pressEnter() {
    const LayoutColumn& left = m_family.columns[m_grid->selectedColumn()];
    m_grid->commitCell();
    m_rows.edit();
    const QString text = m_rows.text(left.grid.field);
    // What stands in a cell that is only passed was let in before.
    if (left.kept > 0 && text.size() > left.kept && m_rows.value(left.grid.field) != m_entered)
        m_rows.setValue(left.grid.field, text.left(left.kept));
    definition::moveOn(*m_grid);
}

void LayoutWindow::pressSpace() {
    const LayoutColumn& column = m_family.columns[m_grid->selectedColumn()];
    const StepCycle& cycle = column.cycle;
    m_rows.edit();
    if (!cycle.onlyWhere.isEmpty() && m_rows.text(cycle.onlyWhere) != cycle.holds)
        return;
    const QString value = m_rows.text(column.grid.field);
    for (const auto& [from, to] : cycle.steps)
        if (value == from)
            return m_rows.setValue(column.grid.field, to);
    if (cycle.otherwise)
        m_rows.setValue(column.grid.field, *cycle.otherwise);
}

void LayoutWindow::doubleClick(int column) {
    if (isCycle(column) && !m_rows.isEmpty())
        pressSpace();
    showColumnState();
}

void LayoutWindow::leaveColumn(int column) {
    if (fieldAt(column) == kLength)
        checkLength();
}

void LayoutWindow::showColumnState() {
    const int column = m_grid->selectedColumn();
    m_grid->setEditing(mayType(column));
    m_status->setCaption(m_family.columns[column].hint);
}

void LayoutWindow::advise() {
    QString advice;
    try {
        advice = recordAdvice(m_rows);
    } catch (const data::TextException&) {
        // Rows that cannot be read now are not spoken of.
    }
    m_advice->advise(advice, [this] { Preview(); });
}

void LayoutWindow::enterCell() {
    m_entered = m_rows.value(fieldAt(m_grid->selectedColumn()));
    showColumnState();
}

QString LayoutWindow::fieldAt(int column) const {
    return m_family.columns[column].grid.field;
}

int LayoutWindow::columnOf(const QString& field) const {
    int column = 0;
    while (fieldAt(column) != field)
        ++column;
    return column;
}

bool LayoutWindow::isCycle(int column) const {
    return m_family.columns[column].grid.kind == widgets::ColumnKind::Cycle;
}

bool LayoutWindow::mayType(int column) const {
    if (fieldAt(column) != kTitle)
        return !isCycle(column);
    const bool isNew = m_rows.state() == data::Dataset::State::Insert;
    return !hasSource() && (isNew || m_rows.recNo() > kGuardedTitles);
}

bool LayoutWindow::hasSource() const {
    return !m_rows.text(kSource).trimmed().isEmpty();
}

// A title that cannot be typed over cannot be pasted over; what the suite fills a field from says its type.
QStringList LayoutWindow::keptInRow() const {
    QStringList kept;
    if (!mayType(columnOf(kTitle)))
        kept.append(kTitle);
    if (hasSource())
        kept.append(kType);
    return kept;
}

// --- rows -------------------------------------------------------------------------------------------

void LayoutWindow::ValidateRow() {
    if (!Bare_Name(m_rows.text(kTitle)).isEmpty())
        return checkLength();
    Show_Msg(QStringLiteral(" نام ميدان خالي مي باشد"), QString(), kError);
    m_grid->selectColumn(columnOf(kName));
    m_grid->setFocus();
    throw data::SilentAbort();
}

// A length that is stored already is no fault of this row's edit.
void LayoutWindow::checkLength() {
    const QVariant length = m_rows.value(kLength);
    if (length == m_rows.originalValue(m_rows.columnIndex(kLength)))
        return;
    if (length.toDouble() < 0)
        throw data::Refusal(QStringLiteral("طول ميدان منفي پذيرفته نمي شود."));
    if (m_family.longestField > 0 && length.toDouble() > m_family.longestField)
        throw data::Refusal(QStringLiteral("طول ميدان حداکثر %1 پذيرفته مي شود.").arg(m_family.longestField));
}

void LayoutWindow::DeleteRow() {
    const bool may =
        m_family.deletes == DeleteRule::WithoutSource ? !hasSource() : m_rows.recNo() > kGuardedRows;
    if (!m_rows.isEmpty() && may && confirmed(QStringLiteral("آيا كد مورد نظر حذف شود")))
        m_rows.deleteRow();
    m_history.note();
}

void LayoutWindow::newStructure() {
    if (!confirmed(QStringLiteral("آيا ساختار فايل مورد نظر حذف شود")))
        return;
    const auto change = [this] {
        Exec_Sql(m_database, QStringLiteral("  delete From  ") + m_file.table);
        PrepareLayouts(m_database, m_family, {m_file});
    };
    m_rows.transact(change, data::Dataset::After::FirstRow);
    m_history.note();
}

}  // namespace layouts
