#include "Sabtpageunit.h"

#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QProxyStyle>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>

#include "Components.h"
#include "DatabaseHelpers.h"
#include "EventBoundary.h"
#include "FormLook.h"
#include "ModuleVariables.h"
#include "Progress.h"
#include "SabtPageForm.h"
#include "Step.h"
#include "UserRights.h"

namespace {

using widgets::EventBoundary;

const QString kFirstSheet = QStringLiteral("ts_Payment");
// The property of a sheet that names the panel its pages stand in; empty where they stand on the sheet.
constexpr char kPanel[] = "PagePanel";

// An open or a closed padlock, as the caption bar shows whether the page may be used.
QPixmap padlock(bool open) {
    constexpr qreal scale = 2;
    QPixmap picture(QSize(32, 22) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = open ? QColor(0x7BE08A) : QColor(0xFF8A7A);
    painter.setPen(QPen(color, 2));
    painter.drawArc(QRectF(open ? 16 : 11, 3, 10, 14), 0, 180 * 16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(9, 10, 14, 10), 2, 2);
    return picture;
}

// The captions bring their own blanks: with the usual room beside them ten tabs would not fit a small
// screen.
class TightTabs : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_TabBarTabHSpace ? 10 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

}  // namespace

TSabtPageForm::TSabtPageForm(QWidget* parent) : Form(forms::sabtPage().className, parent) {
    m_rights = Get_Rights_Tree(*_MyDatabase, QStringLiteral("J_B_"), QString::number(_Global->UserId));
    buildComponents();
    onShow = [this] { FormShow(); };
    onClose = [this] { return FormClose(); };
    setFreeOnClose(true);
}

TSabtPageForm::~TSabtPageForm() {
    // Not released: it goes with the control that the host gave it.
    if (_SabtPageForm == this)
        _SabtPageForm = nullptr;
    if (!m_over) {
        const widgets::Silence silence;
        dropPages();
    }
    // What a step is still busy with outlives the window until that has ended.
    if (pc_Payment) {
        pc_Payment->hide();
        pc_Payment->setParent(nullptr);
        widgets::Step::retire(pc_Payment);
    }
    widgets::Step::retire(m_services.release());
}

void TSabtPageForm::buildComponents() {
    const forms::FormLayout& layout = forms::sabtPage();
    resize(layout.size);
    setWindowTitle(layout.caption);
    forms::buildComponents(*this, layout.components);
    component<QLabel>(QStringLiteral("imgAccess"))->setPixmap(padlock(true));
    component<QLabel>(QStringLiteral("imgNoAccess"))->setPixmap(padlock(false));
    SetAccessImage(true);

    pc_Payment = new QTabWidget(this);
    pc_Payment->setObjectName(QStringLiteral("pc_Payment"));
    pc_Payment->setFont(widgets::formFont());
    pc_Payment->tabBar()->setUsesScrollButtons(true);
    auto* tight = new TightTabs;
    tight->setParent(pc_Payment);
    pc_Payment->tabBar()->setStyle(tight);
    static_cast<forms::AlignLayout*>(this->layout())->add(pc_Payment, forms::Align::Client);
    for (const forms::SheetLayout& sheet : forms::sabtSheets()) {
        auto* page = new QWidget(pc_Payment);
        page->setObjectName(sheet.name);
        page->setProperty(kPanel, sheet.panel);
        forms::buildComponents(*page, sheet.components);
        page->setEnabled(shell::sheetEnabled(sheet.name, m_rights));
        pc_Payment->addTab(page, sheet.caption);
        if (sheet.combo.isEmpty())
            continue;
        auto* combo = page->findChild<QComboBox*>(sheet.combo);
        combo->parentWidget()->layout()->setContentsMargins(6, 4, 6, 4);
        combo->addItems(sheet.comboItems + shell::comboItems(sheet.name));
        combo->setCurrentIndex(sheet.comboIndex);
        connect(combo, &QComboBox::activated, this,
                [this, name = sheet.name] { EventBoundary::run([&] { showSheet(name); }); });
    }
    connect(pc_Payment, &QTabWidget::currentChanged, this, [this](int index) {
        if (m_services && !m_over && index >= 0)
            EventBoundary::run([&] { showSheet(pc_Payment->widget(index)->objectName()); });
    });
    connect(component<QAbstractButton>(QStringLiteral("sb_Closed")), &QAbstractButton::clicked, this,
            [this] { closeForm(); });
    connect(component<QAbstractButton>(QStringLiteral("sb_Minimized")), &QAbstractButton::clicked, this,
            [this] { window()->showMinimized(); });
}

void TSabtPageForm::SetAccessImage(bool enabled) {
    component<QLabel>(QStringLiteral("imgAccess"))->setVisible(enabled);
    component<QLabel>(QStringLiteral("imgNoAccess"))->setVisible(!enabled);
    component<QWidget>(QStringLiteral("Caption_Panel"))->layout()->activate();
}

void TSabtPageForm::FormShow() {
    Set_Round_Region(QRect(QPoint(), screen()->size()), *this);
    const TJFieldLen options = Load_Pay_Options(*_MyDatabase, *_Global);
    // No month's rows may ever be confirmed into another.
    if (!m_pagesMonth.isEmpty() && m_pagesMonth != options.Month_Curent)
        leaveMonth();
    m_options = options;
    m_pagesMonth = options.Month_Curent;
    // One for the window's life: a dialog of it may stand open while the host shows the window again.
    if (!m_services)
        m_services = std::make_unique<TMalyObject>();
    Set_Form_Colors(*_Global, *this);
    placeCaptionButtons();
    auto* first = component<QWidget>(kFirstSheet);
    if (pc_Payment->currentWidget() == first)
        showSheet(kFirstSheet);
    else
        pc_Payment->setCurrentWidget(first);
}

void TSabtPageForm::showSheet(const QString& name) {
    auto* sheet = component<QWidget>(name);
    auto* combo = sheet->findChild<QComboBox*>();
    if (combo && combo->currentIndex() < 0)
        combo->setCurrentIndex(0);
    for (const shell::PagePlace& place : shell::pageCatalogue())
        if (name == QLatin1String(place.sheet) && (place.item < 0 || place.item == combo->currentIndex()))
            return showPage(place);  // which may end the window
}

void TSabtPageForm::showPage(const shell::PagePlace& place) {
    auto* sheet = component<QWidget>(QLatin1String(place.sheet));
    QWidget* holder = sheet;
    if (const QString panel = sheet->property(kPanel).toString(); !panel.isEmpty()) {
        holder = sheet->findChild<QWidget*>(panel);
        // A denied sheet denies its panel, whatever the panel's own right says.
        holder->setEnabled(*place.right ? m_rights.contains(QLatin1String(place.right)) : sheet->isEnabled());
    }
    SetAccessImage(holder->isEnabled());
    if (!*place.variable)
        *place.variable = place.page().make(place.page(), *this, place.variable, holder);
    (*place.variable)->showForm();
}

SuiteHost TSabtPageForm::Host() const {
    return {_MyDatabase, _Global};
}

QList<definition::DefinitionPage*> TSabtPageForm::OpenPages() const {
    QList<definition::DefinitionPage*> pages;
    for (const shell::PagePlace& place : shell::pageCatalogue())
        if (*place.variable)
            pages.append(*place.variable);
    return pages;
}

bool TSabtPageForm::MayShow(const QString& table) const {
    for (const shell::PagePlace& place : shell::pageCatalogue())
        if (place.page().table.compare(table, Qt::CaseInsensitive) == 0 ||
            place.page().lists.contains(table, Qt::CaseInsensitive))
            return *place.right ? m_rights.contains(QLatin1String(place.right))
                                : shell::sheetEnabled(place.sheet, m_rights);
    return true;
}

bool TSabtPageForm::HasTurnover(const QString& table, const QString& column) {
    data::Query query(_MyDatabase->Connection);
    query.setSql("select count(*) from [" + table + "] where " + column + ">0 and codemah='" +
                 Month_Curent() + "' and code_0 in (Select code from person where isnull(isdelete,'')='') ");
    query.open();
    return query.integer(0) > 0;
}

int TSabtPageForm::ComboIndex(const QString& combo) const {
    const auto* box = component<QComboBox>(combo);
    return box ? box->currentIndex() : -1;
}

QString TSabtPageForm::ComboText(const QString& combo) const {
    const auto* box = component<QComboBox>(combo);
    return box ? box->currentText() : QString();
}

void TSabtPageForm::SetComboIndex(const QString& combo, int index) {
    if (auto* box = component<QComboBox>(combo))
        box->setCurrentIndex(index);
}

// --- the end ----------------------------------------------------------------------------------------

bool TSabtPageForm::mustWait() {
    return widgets::Step::paused() && (widgets::Progress::any() || _MyDatabase->Connection->inTransaction());
}

QList<definition::DefinitionPage*> TSabtPageForm::takePages() {
    QList<definition::DefinitionPage*> pages;
    for (const shell::PagePlace& place : shell::pageCatalogue())
        if (definition::DefinitionPage* page = std::exchange(*place.variable, nullptr))
            pages.append(page);
    return pages;
}

// Stores the rows in edit of the direct pages and returns the first page whose row was refused.
definition::DefinitionPage* TSabtPageForm::storeRows() {
    definition::DefinitionPage* refused = nullptr;
    for (const shell::PagePlace& place : shell::pageCatalogue()) {
        if (*place.variable && !(*place.variable)->storeRow() && !refused)
            refused = *place.variable;
        widgets::Step::goOn();
    }
    return refused;
}

void TSabtPageForm::bringForward(const definition::DefinitionPage& page) {
    for (const shell::PagePlace& place : shell::pageCatalogue()) {
        if (*place.variable != &page || page.isVisible())
            continue;
        auto* sheet = component<QWidget>(QLatin1String(place.sheet));
        if (place.item >= 0)
            sheet->findChild<QComboBox*>()->setCurrentIndex(place.item);
        if (pc_Payment->currentWidget() == sheet)
            showPage(place);
        else
            pc_Payment->setCurrentWidget(sheet);
        return;
    }
}

// The pages' dialogs end with them, given up, and so do the steps that wait for an answer.
void TSabtPageForm::dropPages() {
    widgets::Step::endAll();
    const QList<definition::DefinitionPage*> pages = takePages();
    for (definition::DefinitionPage* page : pages)
        EventBoundary::run([&] { page->ClosePage(); });
    for (definition::DefinitionPage* page : pages)
        page->retire();
}

// The operator reads what cannot be stored, and it is dropped.
void TSabtPageForm::leaveMonth() {
    widgets::Step::endAll();
    storeRows();
    dropPages();
}

bool TSabtPageForm::FormClose() {
    if (mustWait()) {
        widgets::Progress::giveUpAll();
        widgets::Step::afterwards([window = QPointer(this)] {
            if (window && !window->m_over)
                window->closeForm();
        });
        return false;
    }
    while (Form* dialog = front()) {
        if (!dialog->isModalShown())
            break;
        dialog->setModalResult(widgets::mrCancel);
        widgets::Step::goOn();
        if (dialog->isModalShown())
            return false;
    }
    if (const definition::DefinitionPage* refused = storeRows()) {
        bringForward(*refused);
        return false;
    }
    m_over = true;
    _SabtPageForm = nullptr;
    const QScopedValueRollback going(comesOrGoes, true);
    dropPages();
    return true;
}

void TSabtPageForm::release() {
    m_over = true;
    const widgets::Silence silence;
    widgets::Step::endAll();
    const auto leave = [pages = takePages()] {
        const widgets::Silence silence;
        for (definition::DefinitionPage* page : pages) {
            page->storeRow();
            EventBoundary::run([&] { page->ClosePage(); });
        }
    };
    if (mustWait())
        widgets::Step::afterwards(leave);
    else
        leave();
    retire();
}

void TSabtPageForm::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    placeCaptionButtons();
}

// At the caption bar's right end, the close button outermost.
void TSabtPageForm::placeCaptionButtons() {
    auto* closeShape = component<QWidget>(QStringLiteral("Close_Shape"));
    if (!closeShape)
        return;
    auto* closeButton = component<QWidget>(QStringLiteral("sb_Closed"));
    auto* minShape = component<QWidget>(QStringLiteral("Min_Shape"));
    auto* minButton = component<QWidget>(QStringLiteral("sb_Minimized"));
    closeShape->move(width() - closeShape->width() - 10, closeShape->y());
    closeButton->move(closeShape->x() + 1, closeShape->y() + 1);
    minShape->move(closeButton->x() - minButton->width() - 3, minShape->y());
    minButton->move(minShape->x() + 1, minShape->y() + 1);
}
