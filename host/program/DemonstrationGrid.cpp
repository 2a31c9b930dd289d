#include "DemonstrationGrid.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QScreen>

#include "EventBoundary.h"
#include "FormLook.h"
#include "GridState.h"
#include "ModuleVariables.h"
#include "PostErrors.h"
#include "TextHelpers.h"
#include "Untfmsg.h"

namespace host {
namespace {

const QString kTable = QStringLiteral("person");
const QString kTitle = QStringLiteral("جدول نمونه: کارکنان");
const GridStateKey kLayout = {QStringLiteral("J"), QStringLiteral("DEMO"), QStringLiteral("PERSON"),
                              QStringLiteral("1")};
constexpr QSize kSize(760, 460);

QList<forms::Component> components() {
    using forms::Align;
    using forms::Kind;
    return {
        {Kind::CaptionBar, "Caption_Panel", {}, Align::Top, {0, 0, 760, 24}, {}, {}},
        {Kind::Shape, "Close_Shape", "Caption_Panel", Align::None, {729, 1, 21, 21}, {}, {}},
        {Kind::CloseButton, "sb_Closed", "Caption_Panel", Align::None, {730, 2, 20, 20}, {}, "بستن فرم"},
        {Kind::LoweredPanel,
         "plStatus",
         {},
         Align::Bottom,
         {0, 0, 760, 28},
         " کارها در منوي جدول هستند: کليد راست ماوس يا کليد منو",
         {}},
        {Kind::Grid, "DBGrid1", {}, Align::Client, {}, {}, {}},
    };
}

QList<widgets::GridColumn> columns() {
    using widgets::ColumnKind;
    return {{.field = QStringLiteral("code"), .title = QStringLiteral("كد"), .width = 90},
            {.field = QStringLiteral("name"),
             .title = QStringLiteral("نام"),
             .width = 110,
             .kind = ColumnKind::Name},
            {.field = QStringLiteral("family"),
             .title = QStringLiteral("نام خانوادگي"),
             .width = 150,
             .kind = ColumnKind::Name},
            {.field = QStringLiteral("tafsily2"), .title = QStringLiteral("مركز هزينه"), .width = 90},
            {.field = QStringLiteral("depart"),
             .title = QStringLiteral("واحد"),
             .width = 60,
             .kind = ColumnKind::Code},
            {.field = QStringLiteral("semat"),
             .title = QStringLiteral("سمت"),
             .width = 60,
             .kind = ColumnKind::Code},
            {.field = QStringLiteral("code_bank"),
             .title = QStringLiteral("بانك"),
             .width = 60,
             .kind = ColumnKind::Code}};
}

}  // namespace

DemonstrationGrid::DemonstrationGrid(HostObjects& objects)
    : DialogForm(QStringLiteral("TDemonstrationGrid")) {
    // The services that are linked into this program have variables of their own.
    _Global = &objects.global;
    _MyDatabase = &objects.database;
    _TempGridForm = objects.tempGridForm.get();
    _DlgMsg = objects.dlgMsg.get();
    buildDialog(components());
    setCaption(kTitle);
    m_grid = component<widgets::DataGrid>(QStringLiteral("DBGrid1"));
    m_grid->setGridColumns(columns());
    m_grid->setDataset(&m_rows);
    m_grid->onKeyPress = [](QChar key) { return Fix_Persian_Key(*_Global, key); };
    m_grid->beforePopup = [this] { BuildPopup(); };
    connect(component<QAbstractButton>(QStringLiteral("sb_Closed")), &QAbstractButton::clicked, this,
            [this] { closeForm(); });
    m_rows.setObjectName(QStringLiteral("Table1"));
    m_rows.setConnection(objects.database.Connection);
    m_rows.setTableName(kTable);
    m_rows.setIndexFieldNames(QStringLiteral("code"));
    onShow = [this] { open(); };
    // What is being typed is stored, or refused aloud, before the window goes.
    onClose = [this] {
        m_grid->dataset()->checkBrowseMode();
        return true;
    };
    resize(kSize.boundedTo(screen()->availableGeometry().size()));
}

DemonstrationGrid::~DemonstrationGrid() {
    m_grid->setDataset(nullptr);
}

void DemonstrationGrid::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        closeForm();
    else
        DialogForm::keyPressEvent(event);
}

void DemonstrationGrid::open() {
    widgets::EventBoundary::install(this, [](const data::ServerError& error) {
        Show_Msg(definition::postErrorText(error), QString(), QStringLiteral("1ER"));
    });
    Set_Form_Colors(*_Global, *this);
    m_grid->setPopupEnabled(_Global->Popups_Allowed);
    m_rows.open();
    Restore_Grid_State(*_MyDatabase, *_Global, *m_grid, kLayout);
    BuildPopup();
    m_grid->setFocus();
}

void DemonstrationGrid::BuildPopup() {
    m_services.Property = {.host = {_MyDatabase, _Global},
                           .grid = m_grid,
                           .program = kLayout.program,
                           .item = kLayout.item,
                           .form = kLayout.form,
                           .part = kLayout.part,
                           .reportTitle1 = kTitle,
                           .reportTitle2 = kTitle,
                           .keyColumn = QStringLiteral("code"),
                           .sortColumn = QStringLiteral("code"),
                           .table = kTable,
                           .exportName = kTable};
    m_services.Build(*m_grid->popupMenu());
}

}  // namespace host
