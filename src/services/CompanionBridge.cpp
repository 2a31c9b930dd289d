#include "CompanionBridge.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QMessageBox>
#include <QSettings>

#include "Errors.h"
#include "ModuleVariables.h"
#include "SettingsSize.h"
#include "Step.h"
#include "TextHelpers.h"

namespace {

const QString kFolder = QStringLiteral("DLLS/SharedForms");
const QString kSettings = QStringLiteral("Data/Companions.ini");
#ifdef Q_OS_WIN
const QString kSuffix = QStringLiteral(".dll");
#else
const QString kSuffix = QStringLiteral(".so");
#endif

QString installedFile(const QString& name) {
    return QDir(_Global->Install_Dir).filePath(kFolder + u'/' + name + kSuffix);
}

// The library of a development tree where one is set.
QString developedFile(const QString& name) {
    const QString file = QDir(_Global->Install_Dir).filePath(kSettings);
    data::requireSettingsSize(file);
    const QSettings settings(file, QSettings::IniFormat);
    const QString folder = settings.value(QStringLiteral("Development/Folder")).toString();
    return folder.isEmpty() ? installedFile(name) : QDir(folder).filePath(name + kSuffix);
}

// Whether somebody else than its owner can write it; a group of the owner's own is nobody else.
bool isOpenToOthers(const QFileInfo& place) {
    const QFile::Permissions may = place.permissions();
    return may.testFlag(QFile::WriteOther) ||
           (may.testFlag(QFile::WriteGroup) && place.groupId() != place.ownerId());
}

// What runs in the program must be what its administrator has put there.
void requireGuarded(const QString& file) {
    const QFileInfo library(file);
    const QString real = library.canonicalFilePath();  // behind a link
    for (const QFileInfo& place :
         {library, QFileInfo(library.absolutePath()), QFileInfo(QFileInfo(real).absolutePath())})
        if (place.exists() && isOpenToOthers(place))
            throw data::Refusal(
                QStringLiteral(
                    "«%1» را جز صاحبش ديگران هم مي توانند بنويسند و بارگذاري نمي شود. اجازه نوشتن را از "
                    "آنان بگيريد.")
                    .arg(data::pathInText(place.absoluteFilePath())));
}

// A library for the length of one call.
class Loaded {
public:
    explicit Loaded(const QString& file) : m_library(file) {
        requireGuarded(file);
        m_library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    }
    ~Loaded() { m_library.unload(); }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    // The entry point; null when library or entry is not there.
    template <class Entry>
    Entry* entry(const char* name) {
        return m_library.load() ? reinterpret_cast<Entry*>(m_library.resolve(name)) : nullptr;
    }
    bool load() { return m_library.load(); }

private:
    QLibrary m_library;
};

// The shared loader of the print calls, which tells a failure.
bool Load_Library(Loaded& library, const QString& path) {
    if (library.load())
        return true;
    QMessageBox box;
    box.setText((QFileInfo::exists(path) ? QStringLiteral("File Exits: ") : QStringLiteral("Can not load ")) +
                path);
    widgets::runDialog(box);
    return false;
}

void print(const QString& name, TDLLPrnParam& parameters) {
    const QString path = developedFile(name);
    Loaded library(path);
    if (!Load_Library(library, path))
        return;
    auto* entry = library.entry<companions::PrintForm_Show>("PrintForm_Show");
    if (!entry)
        return;
    parameters.Reserved1.clear();
    parameters.Reserved2.clear();
    parameters.CurrentDate2 = _Global->Current_Date;
    parameters.HostText2 = _Global->Install_Dir;
    parameters.Connection = _MyDatabase->Connection;
    parameters.UserIdText = QString::number(_Global->UserId);
    entry(&parameters);
    widgets::Step::goOn();
}

}  // namespace

QString Show_Filter(widgets::DataGrid& grid, const QString& baseText) {
    QString result;
    Loaded library(developedFile(QStringLiteral("RowSieve")));
    if (auto* entry = library.entry<companions::ShowFilter>("ShowFilter"))
        entry(&result, _Global, _MyDatabase, _DlgMsg, &grid, baseText, QString());
    widgets::Step::goOn();
    return result;
}

void Show_Report_Property(QObject* source, const QString& title) {
    Loaded library(installedFile(QStringLiteral("ReportSetup")));
    if (auto* entry = library.entry<companions::RepPropertyForm_Show>("RepPropertyForm_Show"))
        entry(QStringLiteral("NoThing"), title, source);
    widgets::Step::goOn();
}

void Grid_Search(widgets::DataGrid& grid, const QString& sortColumn, const QString& table, QString& memory) {
    const QString key = u'_' + grid.gridColumns().value(grid.selectedColumn()).field.toUpper();
    Loaded library(developedFile(QStringLiteral("RowSeek")));
    auto* entry = library.entry<companions::GridSearch>("GridSearch");
    if (!entry)
        return;
    QString result;
    entry(&result, &grid, sortColumn, table, Get_Param(memory, key));
    widgets::Step::goOn();
    memory = Set_Param(memory, key, result);
}

void Adv_Sort(widgets::DataGrid& grid) {
    Loaded library(installedFile(QStringLiteral("RowSeek")));
    QString order;
    if (auto* entry = library.entry<companions::AdvSort>("AdvSort"))
        entry(&order, &grid, QString(), QString(), QString());
    widgets::Step::goOn();
}

void Print_Grid(TDLLPrnParam parameters) {
    print(QStringLiteral("SheetOut"), parameters);
}

void Print_Grid1(TDLLPrnParam parameters) {
    print(QStringLiteral("SheetOut1"), parameters);
}
