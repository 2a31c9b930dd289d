// The context menu of the layout window.
#include "BlockPaste.h"
#include "CompanionBridge.h"
#include "GridExport.h"
#include "Help.h"
#include "LayoutWindow.h"
#include "Malyobjectunit.h"
#include "MenuIcons.h"
#include "PostErrors.h"
#include "RecordPreview.h"
#include "UserRights.h"

namespace layouts {
namespace {

const QString kDenied = QStringLiteral("NO");

// The numbers of the suite's menu pictures.
enum Image {
    kNone = -1,
    kHelp = 0,
    kSearch = 1,
    kClipboard = 4,
    kCopy = 8,
    kPaste = 9,
    kDelete = 10,
    kPrint = 13
};

}  // namespace

void LayoutWindow::BuildPopup() {
    QMenu& menu = *m_grid->popupMenu();
    menu.clear();
    Load_User_Rights(m_database, m_context);
    const bool rows = !m_rows.isEmpty();
    const auto add = [&](const char* caption, Image image, const QKeySequence& shortcut,
                         void (LayoutWindow::*action)()) {
        return TMalyObject::Add_Item(menu, QString::fromUtf8(caption), image, shortcut,
                                     [this, action] { (this->*action)(); });
    };
    const auto addHidden = [&](const char* caption, const QKeySequence& shortcut,
                               void (LayoutWindow::*action)()) {
        add(caption, kNone, shortcut, action)->setProperty(widgets::kShortcutOnly, true);
    };
    add("راهنما", kHelp, Qt::Key_F1, &LayoutWindow::Help);
    menu.addSeparator();
    add("ساختار جديد", kNone, {}, &LayoutWindow::newStructure);
    add("جستجو ...", kSearch, Qt::CTRL | Qt::Key_F, &LayoutWindow::Search)
        ->setEnabled(m_family.searches && m_rows.recordCount() > 1);
    menu.addSeparator();
    add("ارسال به Clipboard ( محيط ديگر ...)", kClipboard, {}, &LayoutWindow::CopyGrid)
        ->setEnabled(rows && m_context.Copy_Right != kDenied);
    add("کپي رديف به حافظه", kCopy, Qt::CTRL | Qt::Key_Insert, &LayoutWindow::CopyRow);
    add("بازيابي رديف از حافظه ", kPaste, Qt::SHIFT | Qt::Key_Insert, &LayoutWindow::PasteRow);
    addHidden("کپي خانه به حافظه", Qt::CTRL | Qt::Key_C, &LayoutWindow::CopyCell);
    addHidden("بازيابي خانه به حافظه", Qt::CTRL | Qt::Key_V, &LayoutWindow::PasteCell);
    menu.addSeparator();
    // The key follows the rule of the rows, whatever the entry that is seen says.
    const QKeySequence deletion(Qt::CTRL | Qt::Key_Delete);
    addHidden("حذف رديف ", deletion, &LayoutWindow::DeleteRow);
    add("حذف رديف ", kDelete, deletion, &LayoutWindow::DeleteRow)->setEnabled(rows && !hasSource());
    menu.addSeparator();
    add("چاپ ...", kPrint, Qt::CTRL | Qt::Key_P, &LayoutWindow::Print)
        ->setEnabled(rows && m_context.Print_Right != kDenied);
    menu.addSeparator();
    m_history.addEntries(menu);
    add("پيش نمايش رکورد", Image(kImageRecord), Qt::CTRL | Qt::Key_R, &LayoutWindow::Preview)
        ->setEnabled(rows);
}

void LayoutWindow::Help() {
    Open_Help(m_context, QStringLiteral("SharhSabet"));
}

void LayoutWindow::Search() {
    Grid_Search(*m_grid, QString(), m_file.table, m_searchMemory);
}

void LayoutWindow::CopyGrid() {
    Copy_Grid(*m_grid, false);
}

void LayoutWindow::CopyRow() {
    if (m_rows.active())
        m_rowMemory = Copy_Row(*m_grid);
}

void LayoutWindow::PasteRow() {
    if (!m_rowMemory.isEmpty() && m_rows.active())
        Paste_Row(m_rows, *m_grid, m_rowMemory, keptInRow());
}

void LayoutWindow::CopyCell() {
    Copy_Cell(*m_grid);
}

void LayoutWindow::PasteCell() {
    const definition::PasteRules rules = {
        .takes = [this](int column) { return isCycle(column) || mayType(column); },
        .cycleValues =
            [this](int column) {
                QStringList values;
                for (const auto& [from, to] : m_family.columns[column].cycle.steps)
                    values << from << to;
                return values << m_family.columns[column].cycle.otherwise.value_or(QString());
            },
        .mark = [](int, bool) {},
        .refusal = [](const data::ServerError& error) { return definition::postErrorText(error); },
        .storesAtOnce = true};
    if (!definition::pasteBlock(*m_grid, rules))
        Paste_Cell(*m_grid);
    m_history.note();
}

void LayoutWindow::Preview() {
    m_grid->commitCell();
    previewRecord({&m_database, &m_context}, m_rows, m_file.fileName);
}

void LayoutWindow::Print() {
    setProperty(companions::ReportSource::kGridKey, m_family.reportKey);
    setProperty(companions::ReportSource::kInstallDir, m_context.Install_Dir);
    TDLLPrnParam parameters;
    parameters.Source = this;
    parameters.Grid = m_grid;
    parameters.Title1 = m_family.printTitle.isEmpty() ? QStringLiteral(" مشخصات ") + caption().trimmed()
                                                      : m_family.printTitle;
    parameters.CurrentDate = m_context.Current_Date;
    parameters.GridKey = m_family.reportKey;
    Print_Grid(parameters);
}

}  // namespace layouts
