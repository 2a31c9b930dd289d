// Companion libraries that are missing, broken, or somewhere else; and long steps that are given up.
#include <QDir>
#include <QFile>
#include <QProgressDialog>
#include <QTableWidget>
#include <QThread>

#include "CompanionBridge.h"
#include "GridExport.h"
#include "MenuFixture.h"

namespace {

class CompanionBridge : public MenuFixture {
protected:
    static constexpr const char* kLibraries[] = {"RowSieve", "RowSeek", "ReportSetup", "SheetOut",
                                                 "SheetOut1"};

    QString library(const QString& name) { return path("DLLS/SharedForms/" + name + ".so"); }
    void remove(const QString& name) { ASSERT_TRUE(QFile::remove(library(name))); }

    // What an entry of the menu says and which dialogs it opens.
    struct Outcome {
        QStringList said, opened;
    };
    Outcome outcome(const QString& caption) {
        opened.clear();
        const QStringList said = choose(*items, caption);
        return {said, opened};
    }
    void expectSilent() {
        for (const char* caption :
             {"پالايش گزارش ...", "مشخصات گزارش ...", "جستجو ...", "مرتب سازي پيشرفته ..."}) {
            const auto [said, dialogs] = outcome(caption);
            EXPECT_EQ(said + dialogs, QStringList()) << caption;
        }
        EXPECT_EQ(items->grid.dataset(), &items->rows);
        EXPECT_EQ(items->rows.indexFieldNames(), "code");
    }
    void expectPrinting(const QString& notice, const QString& folder) {
        for (const auto& [caption, name] :
             {std::pair("چاپ ...", "SheetOut"), std::pair("چاپ پيشرفته ...", "SheetOut1")}) {
            const auto [said, dialogs] = outcome(caption);
            EXPECT_EQ(said,
                      notice.isEmpty() ? QStringList() : QStringList(notice + folder + '/' + name + ".so"));
            EXPECT_EQ(dialogs, QStringList());
        }
    }
};

TEST_F(CompanionBridge, BearsLibrariesThatAreMissingOrBroken) {
    const QString sieve = QFile::symLinkTarget(library("RowSieve")),
                  seek = QFile::symLinkTarget(library("RowSeek"));
    for (const char* name : kLibraries)
        remove(name);
    expectSilent();
    expectPrinting("Can not load ", path("DLLS/SharedForms"));
    for (const char* name : kLibraries) {
        QFile broken(library(name));
        ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
        broken.write("no library");
    }
    expectSilent();
    expectPrinting("File Exits: ", path("DLLS/SharedForms"));
    // Libraries without the entry point.
    for (const char* name : kLibraries) {
        remove(name);
        ASSERT_TRUE(QFile::link(QLatin1String(name) == "RowSieve" ? seek : sieve, library(name)));
    }
    expectSilent();
    expectPrinting({}, {});
}

// What others can write is not loaded, and the operator reads so.
TEST_F(CompanionBridge, LoadsNothingThatOthersCanWrite) {
    const QString folder = path("DLLS/SharedForms");
    const QFile::Permissions may = QFile::permissions(folder);
    ASSERT_TRUE(QFile::setPermissions(folder, may | QFile::WriteOther));
    const QStringList said = outcome("جستجو ...").said;
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said[0].contains(folder)) << qPrintable(said[0]);
    QFile::setPermissions(folder, may);
}

TEST_F(CompanionBridge, TakesFourLibrariesFromTheDevelopmentTree) {
    const QString tree = folder.filePath("tree");
    ASSERT_TRUE(QDir().mkpath(tree) && QDir().mkpath(path("Data")));
    QFile settings(path("Data/Companions.ini"));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[Development]\nFolder=" + tree.toUtf8() + "\n");
    settings.close();
    EXPECT_EQ(outcome("جستجو ...").opened, QStringList()) << "the tree is empty";
    expectPrinting("Can not load ", tree);
    EXPECT_EQ(outcome("مشخصات گزارش ...").opened, QStringList("TRepPropertyForm"))
        << "always the installed one";
    ASSERT_TRUE(QFile::link(QFile::symLinkTarget(library("RowSeek")), tree + "/RowSeek.so"));
    remove("RowSeek");
    EXPECT_EQ(outcome("جستجو ...").opened, QStringList("TSeekForm"));
}

TEST_F(CompanionBridge, PrintsChosenColumnsInGroups) {
    acts = {[&](Form& form) {
                auto* list = form.component<QTableWidget>("ColumnList");
                ASSERT_EQ(list->rowCount(), 4);
                for (int row = 0; row < 4; ++row)
                    list->item(row, 0)->setCheckState(row == 2 ? Qt::Checked : Qt::Unchecked);
                list->setCurrentCell(1, 0);
                form.component<QPushButton>("DownBtn")->click();
                EXPECT_EQ(list->item(2, 0)->text(), "نام");
                form.component<QPushButton>("OkBtn")->click();
            },
            [](Form& form) { form.component<QPushButton>("PdfBtn")->click(); },
            [](Form& form) { form.component<QPushButton>("OkBtn")->click(); }};
    const auto [said, dialogs] = outcome("چاپ پيشرفته ...");
    EXPECT_EQ(dialogs, QStringList({"TAdvPrintForm", "TPrintForm", "TPdfNameForm"}));
    EXPECT_TRUE(QFile::exists(path("PDF/J_BASE_items_1.pdf")));
}

// A server that takes its time, and an operator who gives up as soon as there is something to press.
class Impatient : public CompanionBridge {
protected:
    void SetUp() override {
        CompanionBridge::SetUp();
        objects->connection().setMonitor([](const QString& sql) {
            if (sql.contains("SELECT", Qt::CaseInsensitive))
                QThread::msleep(600);
        });
        QObject::connect(&m_operator, &QTimer::timeout, [this] {
            for (QWidget* widget : QApplication::topLevelWidgets())
                if (auto* dialog = qobject_cast<QProgressDialog*>(widget); dialog && !dialog->wasCanceled()) {
                    ++given;
                    dialog->cancel();
                }
        });
        m_operator.start(0);
    }
    void TearDown() override {
        m_operator.stop();
        objects->connection().setMonitor({});
        CompanionBridge::TearDown();
    }
    int given = 0;  // up, so many times

private:
    QTimer m_operator;
};

TEST_F(Impatient, LeavesNoFileAndTheGridAsItWas) {
    items->choose(1, 1);
    setClipboard("before");
    widgets::DataGrid& grid = items->grid;
    const QList<std::function<void()>> steps = {
        [&] { Export_Office(objects->global, grid, true, ".XLS"); },
        [&] { Export_Html(objects->global, grid, "عنوان"); },
        [&] { Copy_Grid(grid, true); },
        [&] { Export_Dbf(grid, path("ITEMS.DBF"), DbfText::Windows); },
    };
    for (int step = 0; step < steps.size(); ++step) {
        EXPECT_THROW(steps[step](), data::SilentAbort) << step;
        EXPECT_EQ(given, step + 1);
    }
    for (const char* place : {"EXCEL", "html"})
        EXPECT_TRUE(QDir(path(place)).isEmpty(QDir::Files)) << place;
    EXPECT_FALSE(QFile::exists(path("ITEMS.DBF")));
    EXPECT_EQ(clipboard(), "before");
    EXPECT_EQ(items->rows.row(), 1);
    EXPECT_TRUE(items->form.updatesEnabled()) << "the window paints again";
}

TEST_F(Impatient, PrintsAndSearchesNothing) {
    EXPECT_EQ(outcome("چاپ ...").opened, QStringList()) << "no preview of half a grid";
    EXPECT_EQ(given, 1);
    acts = {[](Form& form) {
        form.component<QLineEdit>("SearchEdit")->setText("مسكن");
        form.component<QPushButton>("FindNextBtn")->click();
    }};
    EXPECT_EQ(outcome("جستجو ...").said, QStringList());
    EXPECT_EQ(given, 2);
    EXPECT_EQ(items->rows.row(), 0);
}

}  // namespace
