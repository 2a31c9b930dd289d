#include "Selunit.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QSignalBlocker>
#include <QStorageInfo>
#include <QStyle>
#include <QTreeWidget>

#include "EventBoundary.h"
#include "FormLook.h"
#include "ModuleVariables.h"
#include "SelForm.h"

extern "C" {
TSelForm* _SelForm = nullptr;
}

namespace {

using widgets::EventBoundary;

constexpr int kPath = Qt::UserRole;
const QStringList kMask = {QStringLiteral("*.dbf")};  // in any letter case

// What an operator can put a disk or a network share into.
bool holdsFiles(const QStorageInfo& volume) {
    const QString device = QString::fromLocal8Bit(volume.device());
    const bool real = device.startsWith(u'/') || device.startsWith(u'\\') || device.contains(":/");
    const bool ofTheSystem = volume.rootPath().startsWith(QLatin1String("/boot"));
    return real && !ofTheSystem && volume.isReady() && QFileInfo(volume.rootPath()).isDir();
}

QString nearestFolder(const QString& folder) {
    QString path = QDir::cleanPath(QDir(folder).absolutePath());
    while (!QFileInfo(path).isDir() && !QDir(path).isRoot())
        path = QFileInfo(path).path();
    return path;
}

bool isEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

TSelForm::TSelForm() : Form(forms::selForm().className) {
    const forms::FormLayout& layout = forms::selForm();
    resize(layout.size);
    forms::buildComponents(*this, layout.components);
    setWindowTitle(layout.caption);
    DriveComboBox1 = component<QComboBox>(QStringLiteral("DriveComboBox1"));
    DirectoryListBox1 = component<QTreeWidget>(QStringLiteral("DirectoryListBox1"));
    FileListBox1 = component<QListWidget>(QStringLiteral("FileListBox1"));
    FlopyEdit = component<QLineEdit>(QStringLiteral("FlopyEdit"));
    connectPickers();
    for (const auto& [name, handler] : {std::pair{"OkBitBtn", &TSelForm::OkBitBtnClick},
                                        std::pair{"CancelBitBtn", &TSelForm::CancelBitBtnClick},
                                        std::pair{"sb_Closed", &TSelForm::CancelBitBtnClick}})
        connect(component<QAbstractButton>(QString::fromLatin1(name)), &QAbstractButton::clicked, this,
                handler);
    onShow = [this] { FormShow(); };
    setFolder(QDir::homePath());
    _SelForm = this;
}

TSelForm::~TSelForm() {
    if (_SelForm == this)
        _SelForm = nullptr;
}

void TSelForm::connectPickers() {
    // The pickers show no context menu.
    for (QWidget* picker : {static_cast<QWidget*>(DriveComboBox1), static_cast<QWidget*>(DirectoryListBox1),
                            static_cast<QWidget*>(FileListBox1)}) {
        picker->setContextMenuPolicy(Qt::PreventContextMenu);
        picker->installEventFilter(this);
    }
    FlopyEdit->installEventFilter(this);
    connect(DriveComboBox1, &QComboBox::activated, this,
            [this](int drive) { setFolder(DriveComboBox1->itemData(drive, kPath).toString()); });
    connect(DirectoryListBox1, &QTreeWidget::itemDoubleClicked, this, &TSelForm::openFolder);
    const auto takeName = [this] {
        if (const QListWidgetItem* file = FileListBox1->currentItem())
            FlopyEdit->setText(file->text());
    };
    connect(FileListBox1, &QListWidget::itemSelectionChanged, this, takeName);
    connect(FileListBox1, &QListWidget::itemClicked, this, takeName);
    connect(FileListBox1, &QListWidget::itemDoubleClicked, this, &TSelForm::OkBitBtnClick);
}

void TSelForm::FormShow() {
    Set_Round_Region(QRect(QPoint(), size()), *this);
    Set_Form_Colors(*_Global, *this);
    const QSize room = screen()->size() - size();
    move(screen()->geometry().topLeft() + QPoint(room.width() / 2, room.height() / 2));
    // The disks and the folder may have changed since the window was last seen.
    setFolder(m_folder);
}

// --- name and folder --------------------------------------------------------------------------------

void TSelForm::setFileName(const QString& name) {
    FlopyEdit->setText(name.trimmed());
}

QString TSelForm::fileName() const {
    return FlopyEdit->text().trimmed();
}

void TSelForm::setFolder(const QString& folder) {
    m_folder = nearestFolder(folder);
    listDrives();
    listFolders();
    listFiles();
}

void TSelForm::listDrives() {
    DriveComboBox1->clear();
    const auto add = [this](const QString& name, const QString& path) {
        if (DriveComboBox1->findData(path, kPath) < 0)
            DriveComboBox1->addItem(name, path);
    };
    add(QStringLiteral("ريشه"), QDir::rootPath());
    add(QStringLiteral("خانه"), QDir::homePath());
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        if (holdsFiles(volume))
            add(volume.displayName(), volume.rootPath());
    // The one that the folder is in: of those above it the nearest.
    int nearest = -1;
    qsizetype length = 0;
    for (int drive = 0; drive < DriveComboBox1->count(); ++drive) {
        const QString path = DriveComboBox1->itemData(drive, kPath).toString();
        const QString within = path.endsWith(u'/') ? path : path + u'/';
        if ((m_folder + u'/').startsWith(within) && within.size() > length) {
            nearest = drive;
            length = within.size();
        }
    }
    DriveComboBox1->setCurrentIndex(nearest);
}

// The folders above the current one, one in the other, then those in it.
void TSelForm::listFolders() {
    const QSignalBlocker quiet(DirectoryListBox1);
    DirectoryListBox1->clear();
    QStringList above;
    for (QDir folder(m_folder);; folder = QFileInfo(folder.path()).dir()) {
        above.prepend(folder.path());
        if (folder.isRoot())
            break;
    }
    QTreeWidgetItem* parent = nullptr;
    const auto add = [&](const QString& path, QStyle::StandardPixmap icon) {
        const QString name = QFileInfo(path).fileName();
        auto* item = new QTreeWidgetItem({name.isEmpty() ? QDir::toNativeSeparators(path) : name});
        item->setData(0, kPath, path);
        item->setToolTip(0, QDir::toNativeSeparators(path));
        item->setIcon(0, style()->standardIcon(icon));
        parent ? parent->addChild(item) : DirectoryListBox1->addTopLevelItem(item);
        return item;
    };
    for (const QString& path : above)
        parent = add(path, QStyle::SP_DirOpenIcon);
    const QDir folder(m_folder);
    for (const QString& name :
         folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase))
        add(folder.filePath(name), QStyle::SP_DirIcon);
    DirectoryListBox1->expandAll();
    DirectoryListBox1->setCurrentItem(parent);
    DirectoryListBox1->scrollToItem(parent, QAbstractItemView::PositionAtTop);
}

void TSelForm::listFiles() {
    const QSignalBlocker quiet(FileListBox1);
    FileListBox1->clear();
    FileListBox1->addItems(QDir(m_folder).entryList(kMask, QDir::Files, QDir::Name | QDir::IgnoreCase));
}

void TSelForm::openFolder() {
    if (const QTreeWidgetItem* item = DirectoryListBox1->currentItem())
        setFolder(item->data(0, kPath).toString());
}

void TSelForm::goUp() {
    const QString left = m_folder;
    setFolder(QFileInfo(m_folder).path());
    // The operator goes on from where he was.
    QTreeWidgetItem* opened = DirectoryListBox1->currentItem();
    for (int child = 0; opened && child < opened->childCount(); ++child)
        if (opened->child(child)->data(0, kPath).toString() == left)
            DirectoryListBox1->setCurrentItem(opened->child(child));
}

// --- keys -------------------------------------------------------------------------------------------

bool TSelForm::folderKey(int key) {
    if (isEnter(key))
        openFolder();
    else if (key == Qt::Key_Backspace)
        goUp();
    else
        return false;
    return true;
}

bool TSelForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return Form::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
        CancelBitBtnClick();
        return true;
    }
    if (watched == DirectoryListBox1)
        return folderKey(key);
    if (isEnter(key) && watched != DriveComboBox1) {
        OkBitBtnClick();
        return true;
    }
    return false;
}

void TSelForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        CancelBitBtnClick();
    else
        Form::keyPressEvent(event);
}
