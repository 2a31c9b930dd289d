#include "Untmoafait.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>

#include "CodePage.h"
#include "Components.h"
#include "DatabaseHelpers.h"
#include "EntryKeys.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "FormLook.h"
#include "FrmMoafiat.h"
#include "Malyobjectunit.h"
#include "UserRights.h"

extern "C" {
TFrmMoafiat* _FrmMoafiat = nullptr;
}

namespace {

using widgets::EventBoundary;

constexpr int kShareColumn = 1;
constexpr int kListLength = 200;  // what Perc_mal and Perc_mos hold
constexpr int kFixedAmountLength = 10;
constexpr int kButtonBarHeight = 32;

const QString kCode = QStringLiteral("Code_field");
const QString kShare = QStringLiteral("Fieldlen");

}  // namespace

TFrmMoafiat::TFrmMoafiat(const SuiteHost& host, const QString& table)
    : DialogForm(forms::frmMoafiat().className), m_database(*host.database), m_context(*host.context) {
    const forms::FormLayout& layout = forms::frmMoafiat();
    resize(layout.size);
    buildDialog(layout.components);
    setWindowTitle(layout.caption);
    m_grid = component<widgets::DataGrid>(QStringLiteral("DBGrid2"));
    plFix = component<QWidget>(QStringLiteral("plFix"));
    plMain = component<QWidget>(QStringLiteral("plMain"));
    FixEdit = component<QLineEdit>(QStringLiteral("FixEdit"));
    chSum = component<QCheckBox>(QStringLiteral("chSum"));
    rSabet = component<QRadioButton>(QStringLiteral("rSabet"));
    rMotagher = component<QRadioButton>(QStringLiteral("rMotagher"));
    rMotagher->setChecked(true);
    FixEdit->setEnabled(false);
    chSum->setEnabled(false);

    MozdTable.setTableName(table);
    MozdTable.setIndexFieldNames(kCode);
    const auto refuseSilently = [] { throw data::SilentAbort(); };
    MozdTable.beforeDelete = refuseSilently;
    MozdTable.beforeInsert = refuseSilently;
    m_grid->setGridColumns(forms::frmMoafiatColumns());
    m_grid->setDataset(&MozdTable);
    m_grid->onColumnEnter = [this](int column) { m_grid->setEditing(column == kShareColumn); };
    m_grid->onCellClick = m_grid->onColumnEnter;
    m_grid->onKeyDown = [this](QKeyEvent& key) { return GridKeys(key); };
    m_grid->beforePopup = [this] { buildMenu(); };

    onShow = [this] { FormShow(); };
    const auto click = [this](const char* name, std::function<void()> handler) {
        connect(component<QAbstractButton>(QString::fromLatin1(name)), &QAbstractButton::clicked, this,
                [handler = std::move(handler)] { EventBoundary::run(handler); });
    };
    click("OkBtn", [this] { OkBtnClick(); });
    click("CancelBtn", [this] { setModalResult(widgets::mrCancel); });
    click("sb_Closed", [this] { setModalResult(widgets::mrCancel); });
    click("rSabet", [this] { choiceClick(); });
    click("rMotagher", [this] { choiceClick(); });
}

TFrmMoafiat::~TFrmMoafiat() {
    EventBoundary::run([this] { dropTable(); });
    _FrmMoafiat = nullptr;
}

void TFrmMoafiat::dropTable() {
    MozdTable.close();
    if (Is_Object_Exist(m_database, MozdTable.tableName()))
        Exec_Sql(m_database, "Drop table [dbo].[" + MozdTable.tableName() + "]");
}

void TFrmMoafiat::showOnlyList(const QString& caption) {
    plFix->hide();
    plMain->resize(plMain->width(), kButtonBarHeight);
    setCaption(caption);
}

void TFrmMoafiat::FormShow() {
    Set_Form_Colors(m_context, *this);
    Set_Round_Region(rect(), *this);
    MozdTable.setConnection(m_database.Connection);
    MozdTable.open();
    m_history.begin(*m_grid);
    m_grid->setFocus();
    m_grid->selectColumn(kShareColumn);
}

void TFrmMoafiat::buildMenu() {
    QMenu& menu = *m_grid->popupMenu();
    menu.clear();
    Load_User_Rights(m_database, m_context);
    const auto add = [&](const QString& caption, const QKeySequence& shortcut) {
        return TMalyObject::Add_Item(menu, caption, 0, shortcut, [] {});
    };
    const QString denied = QStringLiteral("NO");
    add(QStringLiteral("راهنما"), Qt::Key_F1);
    add(QStringLiteral("جستجو ..."), Qt::CTRL | Qt::Key_F);
    add(QStringLiteral("ارسال به Clipboard ( محيط ديگر ...)"), {})
        ->setEnabled(m_context.Copy_Right != denied);
    add(QStringLiteral("چاپ ..."), Qt::CTRL | Qt::Key_P)->setEnabled(m_context.Print_Right != denied);
    menu.addSeparator();
    m_history.addEntries(menu);
}

bool TFrmMoafiat::GridKeys(QKeyEvent& key) {
    if (!definition::isEnter(key))
        return false;
    if (m_grid->selectedColumn() == kShareColumn) {
        m_grid->commitCell();
        MozdTable.next();
    } else {
        m_grid->selectColumn(kShareColumn);
    }
    return true;
}

void TFrmMoafiat::choiceClick() {
    const bool fixed = rSabet->isChecked();
    FixEdit->setText(QStringLiteral("0"));
    chSum->setChecked(false);
    const QString stored = callerRows ? callerRows->text(callerField).trimmed() : QString();
    if (fixed && !stored.isEmpty()) {
        chSum->setChecked(stored.startsWith(u'+'));
        FixEdit->setText(chSum->isChecked() ? stored.mid(1, kFixedAmountLength) : stored);
    }
    FixEdit->setEnabled(fixed);
    chSum->setEnabled(fixed);
    if (fixed)
        FixEdit->setFocus();
}

QString TFrmMoafiat::itemList() {
    QStringList entries;
    const int code = MozdTable.columnIndex(kCode);
    const int share = MozdTable.columnIndex(kShare);
    for (int row = 0; row < MozdTable.recordCount(); ++row) {
        const double value = MozdTable.valueAt(row, share).toDouble();
        if (value != 0)
            entries.append("(code_" + data::valueText(MozdTable.valueAt(row, code)) + u'*' +
                           data::valueText(value) + u')');
    }
    return entries.join(u'+');
}

QString TFrmMoafiat::result() {
    if (plFix->isHidden() || rMotagher->isChecked())
        return itemList();
    const QString amount = data::foldDigits(FixEdit->text()).trimmed();
    if (amount.isEmpty())
        return {};
    static const QRegularExpression plain(QStringLiteral("^(\\d+\\.?\\d*|\\.\\d+)$"));
    if (!plain.match(amount).hasMatch())
        throw data::Refusal(
            QStringLiteral("«%1» عدد نيست: فقط رقم و حداکثر يک نقطه پذيرفته مي شود.").arg(amount));
    return (chSum->isChecked() ? QStringLiteral("+") : QString()) + amount;
}

void TFrmMoafiat::storeAtCaller(const QString& text) {
    const QVariant before = callerRows->value(callerField);
    const QVariant mark = callerRows->value(callerMark);
    callerRows->edit();
    callerRows->setValue(callerField, text);
    callerRows->setValue(callerMark, QString(data::kMark));
    try {
        callerRows->post();
    } catch (...) {
        // The row is not complete yet, and this window may still be given up.
        callerRows->setValue(callerField, before);
        callerRows->setValue(callerMark, mark);
        throw;
    }
}

void TFrmMoafiat::OkBtnClick() {
    m_grid->commitCell();
    MozdTable.checkBrowseMode();
    const QString text = result().trimmed();
    if (text.size() > kListLength)
        throw data::Refusal(
            QStringLiteral(
                "فهرست مولفه ها از %1 نويسه بيشتر مي شود و قابل ثبت نيست. درصد چند مولفه را صفر کنيد.")
                .arg(kListLength));
    if (!plFix->isHidden() && callerRows && !text.isEmpty())
        storeAtCaller(text);
    m_confirmed = text;
    setModalResult(widgets::mrOk);
}

void TFrmMoafiat::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        setModalResult(widgets::mrCancel);
    else
        DialogForm::keyPressEvent(event);
}
