#include "Malyobjectunit.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>

#include "CompanionBridge.h"
#include "DatabaseHelpers.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "FormLook.h"
#include "GridColumns.h"
#include "GridExport.h"
#include "GridState.h"
#include "MenuIcons.h"
#include "RestrictedView.h"
#include "Selunit.h"
#include "Untfmsg.h"
#include "UserRights.h"

namespace {

using widgets::DataGrid;

const QString kDenied = QStringLiteral("NO");
// A dataset with this tag is being deleted from by a menu entry, not by its grid's keys.
constexpr int kDeletingTag = 10;
constexpr int kDbfNameLength = 8;

GridStateKey layoutKey(const TGridProperty& grid) {
    return {grid.program, grid.item, grid.form, grid.part};
}

QString gridKey(const TGridProperty& grid) {
    return QStringList({grid.program, grid.item, grid.form, grid.part}).join(u'_');
}

// The key of the current row, as it is stored, that a dependency description makes up.
QString dependencyKey(const QString& description, const data::Dataset& rows) {
    QString key;
    for (const QString& part : description.split(u'+'))
        key += part.trimmed() == QLatin1String("'_'")
                   ? QStringLiteral("_")
                   : data::valueText(rows.originalValue(rows.columnIndex(part.trimmed())));
    return key;
}

void add(QMenu& to, const char* caption, int image, const QKeySequence& shortcut, bool enabled,
         std::function<void()> action) {
    TMalyObject::Add_Item(to, QString::fromUtf8(caption), image, shortcut, std::move(action))
        ->setEnabled(enabled);
}

// What sends the grid's rows to other programs.
void addExports(QMenu& menu, const TGridProperty& grid, bool enabled) {
    QMenu& send = *menu.addMenu(QStringLiteral("ارسال به"));
    send.menuAction()->setData(3);
    QObject::connect(&menu, &QMenu::aboutToShow, &send, [&send] { send.setIcon(Menu_Icon(3)); });
    send.menuAction()->setEnabled(enabled);
    send.setLayoutDirection(menu.layoutDirection());
    add(send, "Clipboard (محيط ديگر ...)", 4, {}, enabled, [grid] { Copy_Grid(*grid.grid, true); });
    add(send, "Excel", 5, {}, enabled,
        [grid] { Export_Office(*grid.host.context, *grid.grid, true, QStringLiteral(".XLS")); });
    add(send, "Word", 6, {}, enabled,
        [grid] { Export_Office(*grid.host.context, *grid.grid, true, QStringLiteral(".DOC")); });
    add(send, "HTML", 7, {}, enabled,
        [grid] { Export_Html(*grid.host.context, *grid.grid, grid.reportTitle1); });
}

}  // namespace

TMalyObject::TMalyObject() = default;
TMalyObject::~TMalyObject() = default;

QAction* TMalyObject::Add_Item(QMenu& menu, const QString& caption, int image, const QKeySequence& shortcut,
                               std::function<void()> action) {
    QAction* item = menu.addAction(caption);
    item->setData(image);
    // Pictures are drawn for a menu that is seen; most are built for their keys alone.
    QObject::connect(&menu, &QMenu::aboutToShow, item, [item, image] { item->setIcon(Menu_Icon(image)); });
    item->setShortcut(shortcut);
    // The grid acts on the shortcut itself, after the entry's state has been settled.
    item->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(item, &QAction::triggered, &menu,
                     [action = std::move(action)] { widgets::EventBoundary::run(action); });
    return item;
}

void TMalyObject::Remove_Item(QMenu& menu, int image) {
    for (QAction* item : menu.actions()) {
        if (!item->isSeparator() && item->data().toInt() == image) {
            delete item;
            return;
        }
    }
}

void TMalyObject::Build(QMenu& menu) {
    menu.clear();
    const TGridProperty grid = Property;
    data::Dataset* rows = grid.grid->dataset();
    data::HostContext& context = *grid.host.context;
    if (!rows || !rows->active() || !context.Popups_Allowed)
        return;
    Load_User_Rights(*grid.host.database, context);
    const bool copies = context.Copy_Right != kDenied;
    const bool prints = context.Print_Right != kDenied;
    const bool reports = context.Report_Right == QLatin1String("REPORT");
    const bool any = !rows->isEmpty();
    const bool restricted = m_views.restricted(*grid.grid);

    add(menu, "راهنما", 0, Qt::Key_F1, true,
        [] { Show_Msg(QStringLiteral("راهنما"), QString(), QStringLiteral("1ER")); });
    menu.addSeparator();
    add(menu, "جستجو ...", 1, Qt::CTRL | Qt::Key_F, any,
        [this, grid] { Grid_Search(*grid.grid, grid.sortColumn, grid.table, m_searches); });
    menu.addSeparator();
    add(menu, "ثبت وضعيت ستونها", 2, Qt::CTRL | Qt::Key_G, true,
        [grid] { Save_Grid_State(*grid.host.database, *grid.host.context, *grid.grid, layoutKey(grid)); });
    add(menu, "بازگشت به وضعيت اوليه ستونها", 42, Qt::ALT | Qt::Key_G, true,
        [grid] { Reset_Grid_State(*grid.host.database, *grid.host.context, *grid.grid, layoutKey(grid)); });
    menu.addSeparator();
    addExports(menu, grid, any && copies);
    menu.addSeparator();
    add(menu, "کپي رديف به حافظه", 8, Qt::CTRL | Qt::Key_Insert, any && copies,
        [grid] { QGuiApplication::clipboard()->setText(Copy_Row(*grid.grid)); });
    add(menu, "بازيابي رديف از حافظه", 9, Qt::SHIFT | Qt::Key_Insert, copies,
        [grid] { Paste_Row(*grid.grid->dataset(), *grid.grid, QGuiApplication::clipboard()->text()); });
    add(menu, "کپي خانه به حافظه", kImageCopyCell, Qt::CTRL | Qt::Key_C, any && copies,
        [grid] { Copy_Cell(*grid.grid); });
    add(menu, "بازيابي خانه از حافظه", kImagePasteCell, Qt::CTRL | Qt::Key_V, copies, [grid] {
        if (!grid.pasteBlock || !grid.pasteBlock())
            Paste_Cell(*grid.grid);
    });
    menu.addSeparator();
    add(menu, "حذف رديف", 10, Qt::CTRL | Qt::Key_Delete, any, [this, grid] { deleteRow(grid); });
    menu.addSeparator();
    add(menu, restricted ? "بازگشت از پالايش" : "پالايش گزارش ...", 11, Qt::CTRL | Qt::Key_L,
        any || restricted, [this, grid] { m_views.Filter_Menu_Click(*grid.grid, grid.table); });
    add(menu, "مشخصات گزارش ...", 12, {}, reports,
        [this, grid] { Show_Report_Property(reportSource(grid), grid.reportTitle1); });
    menu.addSeparator();
    add(menu, "چاپ ...", 13, Qt::CTRL | Qt::Key_P, any && prints, [this, grid] { print(grid, false); });
    add(menu, "چاپ پيشرفته ...", 40, {}, any && prints, [this, grid] { print(grid, true); });
    add(menu, "مرتب سازي پيشرفته ...", 41, {}, any, [grid] {
        Adv_Sort(*grid.grid);
        // The title that a click had marked tells the order no more.
        Sort_By_Column(*grid.host.context, *grid.grid->dataset(), *grid.grid, -1);
    });
    add(menu, "تنظيم عرض ستونها", 500, {}, any,
        [grid] { Fit_Grid_Columns(*grid.host.database, *grid.grid, false, 0); });
    add(menu, "Dbf->Dos", 14, {}, any && copies, [this, grid] { exportDbf(grid, DbfText::Dos); });
    add(menu, "Dbf->Win", 14, {}, any && copies, [this, grid] { exportDbf(grid, DbfText::Windows); });
}

void TMalyObject::deleteRow(const TGridProperty& grid) {
    const auto focused = qScopeGuard([&] { grid.grid->setFocus(); });
    data::Dataset& rows = *grid.grid->dataset();
    if (rows.state() == data::Dataset::State::Insert)
        rows.post();
    if (rows.isEmpty())
        return;
    // A restricted view refuses in its own words, before anything is asked.
    if (!rows.restriction().isEmpty())
        return rows.deleteRow();
    if (!grid.dependency.isEmpty() && Is_Depended(*grid.host.database, "sp_M_Depended_" + grid.exportName,
                                                  dependencyKey(grid.dependency, rows))) {
        Show_Msg(QStringLiteral("گردش دارد."), QString(), QStringLiteral("1ER"));
        return;
    }
    if (Show_Msg(QStringLiteral("آيا حذف شود؟"), QString(), QStringLiteral("3QR")) != widgets::mrYes)
        return;
    rows.setProperty("Tag", kDeletingTag);
    rows.deleteRow();
}

QObject* TMalyObject::reportSource(const TGridProperty& grid) {
    m_source.setProperty(companions::ReportSource::kGridKey, gridKey(grid));
    m_source.setProperty(companions::ReportSource::kInstallDir, grid.host.context->Install_Dir);
    return &m_source;
}

void TMalyObject::print(const TGridProperty& grid, bool advanced) {
    const TDLLPrnParam parameters = {.Source = reportSource(grid),
                                     .Grid = grid.grid,
                                     .Title1 = grid.reportTitle2,
                                     .Title2 = grid.reportText3,
                                     .Title3 = grid.reportText4,
                                     .CurrentDate = grid.host.context->Current_Date,
                                     .Text1 = grid.text5,
                                     .Text2 = grid.text6,
                                     .Text3 = grid.text7,
                                     .GridKey = gridKey(grid),
                                     .Text4 = grid.text8};
    advanced ? Print_Grid1(parameters) : Print_Grid(parameters);
}

void TMalyObject::exportDbf(const TGridProperty& grid, DbfText text) {
    const QString suffix = QStringLiteral(".DBF");
    // Made once: the next export begins in the folder chosen for the last.
    if (!m_selForm)
        m_selForm = std::make_unique<TSelForm>();
    TSelForm& form = *m_selForm;
    form.setFileName(grid.exportName.left(kDbfNameLength) + suffix);
    if (form.showModal() != widgets::mrOk)
        return;
    QString name = form.fileName();
    if (name.isEmpty())
        throw data::Refusal(QStringLiteral("نام فايل وارد نشده است."));
    if (!name.endsWith(suffix, Qt::CaseInsensitive))
        name += suffix;
    Export_Dbf(*grid.grid, QDir(form.folder()).filePath(name), text);
    Show_Msg(QStringLiteral("کپي فايلها با موفقيت انجام شد "), QString(), QStringLiteral("1IR"));
}
