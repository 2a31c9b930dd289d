#include "HostWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QStatusBar>
#include <QVBoxLayout>

#include "BackupsForm.h"
#include "CompanyDoor.h"
#include "Components.h"
#include "DemonstrationGrid.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "Messages.h"
#include "Parts.h"

using widgets::EventBoundary;

namespace {

const QString kDropped = QStringLiteral("ويرايش هايي که تاييد نشده اند با بستن پنجره کنار گذاشته مي شوند.");

const QStringList kMonths = {QStringLiteral("فروردين"), QStringLiteral("ارديبهشت"), QStringLiteral("خرداد"),
                             QStringLiteral("تير"),     QStringLiteral("مرداد"),    QStringLiteral("شهريور"),
                             QStringLiteral("مهر"),     QStringLiteral("آبان"),     QStringLiteral("آذر"),
                             QStringLiteral("دي"),      QStringLiteral("بهمن"),     QStringLiteral("اسفند")};

const char kStyle[] = R"(
    #Header { background: #1F4E79; }
    #Header QLabel { color: white; }
    #Title { font-size: 17px; font-weight: bold; }
    #Header QPushButton { color: white; background: #2F6CA8; border: 1px solid #4A86C0; border-radius: 4px;
                          padding: 5px 12px; }
    #Header QPushButton:hover { background: #3B7DBD; }
    #Header QPushButton:disabled { color: #9DB6CE; background: #295D90; border-color: #295D90; }
    #Welcome { background: #FFFFFF; }
    #WelcomeTitle { font-size: 22px; font-weight: bold; color: #1F4E79; }
    #WelcomeText { color: #505050; }
    #Welcome QPushButton { padding: 12px 22px; min-width: 190px; font-size: 14px; color: #1F4E79;
                           background: #F2F6FA; border: 1px solid #C3D3E3; border-radius: 6px; }
    #Welcome QPushButton:hover { background: #E2ECF6; }
    #Welcome #Recent { padding: 5px 12px; font-size: 13px; background: transparent; border: none; }
    #Welcome #Recent:hover { text-decoration: underline; }
)";

const QString kProgram = QStringLiteral("korvanta"), kHost = QStringLiteral("host");  // whose settings
const QString kRecent = QStringLiteral("RecentCompanies");

void rememberFile(const QString& file) {
    constexpr int kRemembered = 5;
    QSettings settings(kProgram, kHost);
    QStringList recent = settings.value(kRecent).toStringList();
    const QString path = QFileInfo(file).absoluteFilePath();
    recent.removeAll(path);
    recent.prepend(path);
    settings.setValue(kRecent, recent.mid(0, kRemembered));
}

// Where settings and exports live: beside the program as it was built, else among the user's data.
QString installFolder() {
    const QString beside = QCoreApplication::applicationDirPath();
    QString folder = QDir(beside).exists(QStringLiteral("DLLS"))
                         ? beside
                         : QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
                               QStringLiteral("/install");
    QDir(folder).mkpath(QStringLiteral("Data"));
    return folder;
}

// A file dialog in the operator's language; empty when given up.
QString askFile(QWidget* parent, const QString& title, const QString& accept, QFileDialog::AcceptMode mode) {
    QFileDialog dialog(parent, title);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters({QStringLiteral("پرونده شرکت (*.company)"), QStringLiteral("همه پرونده ها (*)")});
    dialog.setDefaultSuffix(QStringLiteral("company"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("پوشه"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("نام پرونده"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("نوع"));
    dialog.setLabelText(QFileDialog::Accept, accept);
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("انصراف"));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace

HostWindow::HostWindow() {
    m_messages.DefaultTitle = QStringLiteral("حقوق و دستمزد");
    speakHere();
    setWindowTitle(QStringLiteral("حقوق و دستمزد"));
    m_canvas = new QWidget;
    // What is seen behind the rounded corners of the module's window belongs to the header above.
    QPalette ground = m_canvas->palette();
    ground.setColor(QPalette::Window, QColor(0x1F4E79));
    m_canvas->setPalette(ground);
    m_canvas->setAutoFillBackground(true);
    m_pages = new QStackedWidget;
    m_pages->addWidget(m_canvas);
    auto* body = new QWidget;
    auto* rows = new QVBoxLayout(body);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(makeHeader());
    rows->addWidget(m_pages, 1);
    setCentralWidget(body);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(new QLabel(kDropped));
    resize(1000, 680);
    refresh();
}

HostWindow::~HostWindow() {
    stopBackup();
    m_module.reset();
    m_objects.reset();
    EventBoundary::setMessageSink({});
}

// Until the module brings its own message function, and again when its dialog is gone.
void HostWindow::speakHere() {
    EventBoundary::setMessageSink([this](const QString& text) { host::notify(m_messages, text); });
}

QPushButton* HostWindow::makeAction(const QString& caption, void (HostWindow::*action)()) {
    auto* button = new QPushButton(caption);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::clicked, this,
            [this, action] { EventBoundary::run([&] { (this->*action)(); }); });
    return button;
}

QWidget* HostWindow::makeHeader() {
    auto* header = widgets::named(new QFrame, "Header");
    header->setStyleSheet(QLatin1String(kStyle));  // of its own: the module's window keeps its colours
    m_title = widgets::named(new QLabel, "Title");
    m_title->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
    m_users = new QComboBox;
    m_users->setMinimumWidth(90);
    m_months = new QComboBox;
    m_months->addItems(kMonths);
    m_months->setMaxVisibleItems(12);
    m_showModule = makeAction(QStringLiteral("اطلاعات پايه"), &HostWindow::showModule);
    m_showDemonstration = makeAction(QStringLiteral("جدول نمونه"), &HostWindow::showDemonstration);
    m_showBackups = makeAction(QStringLiteral("پشتيبان ها"), &HostWindow::showBackups);
    connect(m_users, &QComboBox::activated, this, [this] { EventBoundary::run([this] { userChosen(); }); });
    connect(m_months, &QComboBox::activated, this, [this] { EventBoundary::run([this] { monthChosen(); }); });

    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(14, 10, 14, 10);
    row->setSpacing(10);
    row->addWidget(m_title, 1);
    row->addWidget(new QLabel(QStringLiteral("کاربر")));
    row->addWidget(m_users);
    row->addWidget(new QLabel(QStringLiteral("ماه")));
    row->addWidget(m_months);
    row->addWidget(m_showModule);
    row->addWidget(m_showDemonstration);
    row->addWidget(m_showBackups);
    row->addWidget(makeAction(QStringLiteral("باز کردن شرکت"), &HostWindow::askOpen));
    return header;
}

QWidget* HostWindow::makeWelcome() {
    auto* page = widgets::named(new QFrame, "Welcome");
    page->setStyleSheet(QLatin1String(kStyle));
    auto* title = widgets::named(new QLabel(QStringLiteral("خوش آمديد")), "WelcomeTitle");
    auto* text =
        new QLabel(QStringLiteral("يک شرکت را باز کنيد، شرکتي تازه بسازيد يا با شرکت نمونه کار کنيد."));
    text->setObjectName(QStringLiteral("WelcomeText"));
    auto* column = new QVBoxLayout(page);
    column->addStretch();
    column->addWidget(title, 0, Qt::AlignHCenter);
    column->addWidget(text, 0, Qt::AlignHCenter);
    column->addSpacing(16);
    for (QPushButton* button : {makeAction(QStringLiteral("شرکت نمونه"), &HostWindow::askDemo),
                                makeAction(QStringLiteral("شرکت تازه"), &HostWindow::askEmpty),
                                makeAction(QStringLiteral("باز کردن"), &HostWindow::askOpen)})
        column->addWidget(button, 0, Qt::AlignHCenter);
    column->addSpacing(16);
    for (const QString& file : QSettings(kProgram, kHost).value(kRecent).toStringList()) {
        if (!QFileInfo::exists(file))
            continue;
        auto* button = widgets::named(new QPushButton(QFileInfo(file).completeBaseName()), "Recent");
        button->setToolTip(file);
        connect(button, &QPushButton::clicked, this, [this, file] { openFile(file); });
        column->addWidget(button, 0, Qt::AlignHCenter);
    }
    column->addStretch();
    return page;
}

// --- companies ---------------------------------------------------------------------------------------

void HostWindow::askOpen() {
    const QString file =
        askFile(this, QStringLiteral("باز کردن شرکت"), QStringLiteral("باز کردن"), QFileDialog::AcceptOpen);
    if (!file.isEmpty())
        openFile(file);
}

void HostWindow::askEmpty() {
    const QString file =
        askFile(this, QStringLiteral("ساختن شرکت تازه"), QStringLiteral("ساختن"), QFileDialog::AcceptSave);
    if (!file.isEmpty())
        createFile(file, std::nullopt);
}

void HostWindow::askDemo() {
    const QString file =
        askFile(this, QStringLiteral("ساختن شرکت نمونه"), QStringLiteral("ساختن"), QFileDialog::AcceptSave);
    if (!file.isEmpty())
        createFile(file, host::DemoSize{});
}

void HostWindow::createFile(const QString& file, const std::optional<host::DemoSize>& demo) {
    const bool made = EventBoundary::run([&] {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        const auto restored = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
        if (demo)
            host::createDemoCompany(file, *demo);
        else
            host::createEmptyCompany(file);
    });
    if (made)
        openFile(file);
}

void HostWindow::openFile(const QString& file) {
    EventBoundary::run([&] {
        for (;;)
            try {
                return take(host::openCompany(file), QFileInfo(file).completeBaseName(), file);
            } catch (const host::CompanyLocked& locked) {
                if (!host::ask(m_messages, locked.text() + QStringLiteral("\nدوباره امتحان شود؟")))
                    return;
            }
    });
}

void HostWindow::openServer(const QString& connectionString, const odbc::Waits& waits,
                            const std::optional<host::DemoSize>& demo) {
    EventBoundary::run([&] {
        auto connection = odbc::open(connectionString, waits);
        if (demo && !host::holdsCompany(*connection))
            host::createCompanyOn(*connection, demo);
        take(std::move(connection), QStringLiteral("SQL Server"), {});
    });
}

void HostWindow::take(std::unique_ptr<data::Connection> connection, const QString& title,
                      const QString& file) {
    // All that can be refused comes before what is open now is let go.
    auto objects = std::make_unique<host::HostObjects>(std::move(connection), installFolder());
    const QString code = objects->global.SCode_1 + objects->global.SCode_2;
    const int month = host::paymentMonth(objects->connection(), code);
    const QList<int> users = host::companyUsers(objects->connection());
    if (!leaveModule(QStringLiteral("شرکت ديگري باز شود؟")))
        return;
    stopBackup();
    m_use.reset();  // where it is the same company
    m_objects = std::move(objects);
    m_file = file;
    if (!file.isEmpty())
        m_use = std::make_unique<host::CompanyUse>(file);
    if (m_use && m_use->cameFirst()) {
        EventBoundary::run(
            [this] { host::dropLeftTables(m_objects->connection(), m_objects->global.Temp_Prefix); });
        m_use->share();
    }
    speakHere();
    m_month = month;
    m_title->setText(QStringLiteral("شرکت ") + title);
    m_months->setCurrentIndex(month - 1);
    m_users->clear();
    for (int user : users)
        m_users->addItem(QStringLiteral("کاربر %1").arg(user), user);
    m_users->setCurrentIndex(m_users->findData(m_objects->global.UserId));
    refresh();
    if (!m_file.isEmpty()) {
        rememberFile(m_file);
        startBackup();
    }
}

// --- copies of the company ---------------------------------------------------------------------------

void HostWindow::startBackup() {
    m_backsUp = true;
    m_backup.reset(QThread::create([this, file = m_file] {
        QString trouble;
        try {
            host::backUpToday(file, [this] { return m_backsUp.load(); });
        } catch (const data::TextException& error) {
            trouble = error.text();
        }
        if (!trouble.isEmpty())
            QMetaObject::invokeMethod(this, [this, trouble] { statusBar()->showMessage(trouble); });
    }));
    m_backup->start(QThread::LowPriority);
}

void HostWindow::stopBackup() {
    m_backsUp = false;
    if (m_backup)
        m_backup->wait();
    m_backup.reset();
}

void HostWindow::showBackups() {
    host::BackupsForm form(m_file, m_messages);
    if (form.showModal() != widgets::mrOk || !leaveModule(QStringLiteral("پشتيبان بازگردانده شود؟")))
        return;
    const QString file = m_file;
    stopBackup();
    m_module.reset();
    m_objects.reset();
    speakHere();
    EventBoundary::run([&] { host::restoreBackup(file, form.chosen()); });
    openFile(file);
    refresh();
}

QString HostWindow::companyCode() const {
    return m_objects->global.SCode_1 + m_objects->global.SCode_2;
}

// --- user and month ----------------------------------------------------------------------------------

void HostWindow::chooseUser(int user) {
    if (!m_objects)
        return;
    EventBoundary::run([&] {
        if (m_users->findData(user) < 0)
            throw data::Refusal(QStringLiteral("کاربر %1 در اين شرکت تعريف نشده است.").arg(user));
        m_objects->global.UserId = user;
    });
    m_users->setCurrentIndex(m_users->findData(m_objects->global.UserId));
}

void HostWindow::chooseMonth(int month) {
    if (!m_objects || month == m_month)
        return;
    EventBoundary::run([&] {
        if (month < 1 || month > kMonths.size())
            throw data::Refusal(QStringLiteral("شماره ماه از 1 تا 12 است."));
        host::setPaymentMonth(m_objects->connection(), companyCode(), month);
        m_month = month;
    });
    m_months->setCurrentIndex(m_month - 1);
}

void HostWindow::userChosen() {
    const int user = m_users->currentData().toInt();
    const bool shown = moduleShown();
    if (user == m_objects->global.UserId)
        return;
    if (!leaveModule(QStringLiteral("کاربر عوض شود؟"))) {
        m_users->setCurrentIndex(m_users->findData(m_objects->global.UserId));
        return;
    }
    chooseUser(user);
    if (shown)
        showModule();
}

void HostWindow::monthChosen() {
    const int month = m_months->currentIndex() + 1;
    const bool shown = moduleShown();
    if (month == m_month)
        return;
    if (!leaveModule(QStringLiteral("ماه عوض شود؟"))) {
        m_months->setCurrentIndex(m_month - 1);
        return;
    }
    chooseMonth(month);
    if (shown)
        showModule();
}

// --- the module --------------------------------------------------------------------------------------

bool HostWindow::moduleShown() const {
    return m_module && m_module->window() != nullptr;
}

bool HostWindow::leaveModule(const QString& question) {
    if (!moduleShown())
        return true;
    return host::ask(m_messages, question + u'\n' + kDropped) && m_module->window()->closeForm();
}

void HostWindow::showModule() {
    if (!m_objects)
        return;
    EventBoundary::run([this] {
        if (!m_module)
            m_module = std::make_unique<host::Module>(host::partOf(QStringLiteral("libPaymentKorvanta.so")));
        m_pages->setCurrentWidget(m_canvas);
        m_module->show(m_canvas, *m_objects);
        if (widgets::Form* window = m_module->window())
            connect(window, &QObject::destroyed, this, &HostWindow::refresh, Qt::UniqueConnection);
    });
    refresh();
}

void HostWindow::showDemonstration() {
    if (!m_objects)
        return;
    EventBoundary::run([this] { host::DemonstrationGrid(*m_objects).showModal(); });
}

// The welcome page is made when it is first seen: most mornings begin with a company.
void HostWindow::choosePage() {
    // Made anew: it names the companies that were opened last.
    if (!moduleShown()) {
        if (m_welcome)
            m_welcome->deleteLater();
        m_welcome = makeWelcome();
        m_pages->addWidget(m_welcome);
    }
    m_pages->setCurrentWidget(moduleShown() ? m_canvas : m_welcome);
}

void HostWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    choosePage();
}

void HostWindow::refresh() {
    const bool open = m_objects != nullptr;
    if (isVisible())
        choosePage();
    for (QWidget* widget : {static_cast<QWidget*>(m_users), static_cast<QWidget*>(m_months),
                            static_cast<QWidget*>(m_showModule)})
        widget->setEnabled(open);
    m_showModule->setEnabled(open && !moduleShown());
    m_showDemonstration->setEnabled(open);
    m_showBackups->setEnabled(open && !m_file.isEmpty());
    if (!open)
        m_title->setText(QStringLiteral("حقوق و دستمزد"));
}

void HostWindow::closeEvent(QCloseEvent* event) {
    // A page that cannot be left keeps its window, and this one.
    event->setAccepted(!moduleShown() || m_module->window()->closeForm());
}
