// Companion libraries that are missing, broken, or somewhere else; and long steps that are given up.
#include <QProgressDialog>
#include <QThread>

#include "CompanionBridge.h"
#include "Errors.h"
#include "GridColumns.h"
#include "GridExport.h"
#include "MenuFixture.h"
#include "TextHelpers.h"

namespace {

class CompanionBridge : public MenuFixture {
protected:
    static constexpr const char* kLibraries[] = {"RowSieve", "RowSeek", "ReportSetup", "SheetOut",
                                                 "SheetOut1"};

    QString library(const QString& name) { return path("DLLS/SharedForms/" + name + ".so"); }
    void remove(const QString& name) { ASSERT_TRUE(QFile::remove(library(name))); }

    // What each call of the bridge says and which dialogs it opens.
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
            EXPECT_EQ(said, QStringList()) << caption;
            EXPECT_EQ(dialogs, QStringList()) << caption;
        }
        EXPECT_EQ(items->grid.dataset(), &items->rows);
        EXPECT_NE(entry(*items, "پالايش گزارش ..."), nullptr);
        EXPECT_EQ(items->rows.indexFieldNames(), "code");
    }
    void expectPrinting(const QString& notice, const QString& folder) {
        const std::pair<const char*, const char*> calls[] = {{"چاپ ...", "SheetOut"},
                                                             {"چاپ پيشرفته ...", "SheetOut1"}};
        for (const auto& [caption, name] : calls) {
            const auto [said, dialogs] = outcome(caption);
            EXPECT_EQ(said, notice.isEmpty()
                                ? QStringList()
                                : QStringList(notice + folder + '/' + QString::fromLatin1(name) + ".so"));
            EXPECT_EQ(dialogs, QStringList());
        }
    }
};

TEST_F(CompanionBridge, OpensEachLibrarysOwnDialog) {
    const std::pair<const char*, const char*> dialogs[] = {
        {"پالايش گزارش ...", "TSieveForm"}, {"مشخصات گزارش ...", "TRepPropertyForm"},
        {"جستجو ...", "TSeekForm"},         {"مرتب سازي پيشرفته ...", "TSortForm"},
        {"چاپ ...", "TPrintForm"},          {"چاپ پيشرفته ...", "TAdvPrintForm"}};
    for (const auto& [caption, dialog] : dialogs)
        EXPECT_EQ(outcome(caption).opened, QStringList(dialog)) << caption;
}

TEST_F(CompanionBridge, BearsMissingLibraries) {
    for (const char* name : kLibraries)
        remove(name);
    expectSilent();
    expectPrinting("Can not load ", path("DLLS/SharedForms"));
}

TEST_F(CompanionBridge, BearsBrokenLibraries) {
    for (const char* name : kLibraries) {
        remove(name);
        QFile broken(library(name));
        ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
        broken.write("no library");
    }
    expectSilent();
    expectPrinting("File Exits: ", path("DLLS/SharedForms"));
}

TEST_F(CompanionBridge, BearsLibrariesWithoutTheEntryPoint) {
    const QString sieve = QFile::symLinkTarget(library("RowSieve")),
                  seek = QFile::symLinkTarget(library("RowSeek"));
    for (const char* name : kLibraries) {
        remove(name);
        ASSERT_TRUE(QFile::link(QLatin1String(name) == "RowSieve" ? seek : sieve, library(name)));
    }
    expectSilent();
    expectPrinting({}, {});
}

TEST_F(CompanionBridge, TakesFourLibrariesFromTheDevelopmentTree) {
    const QString tree = folder.filePath("tree");
    ASSERT_TRUE(QDir().mkpath(tree) && QDir().mkpath(path("Data")));
    QFile settings(path("Data/Companions.ini"));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[Development]\nFolder=" + tree.toUtf8() + "\n");
    settings.close();
    EXPECT_EQ(outcome("پالايش گزارش ...").opened, QStringList()) << "the tree is empty";
    EXPECT_EQ(outcome("جستجو ...").opened, QStringList());
    expectPrinting("Can not load ", tree);
    EXPECT_EQ(outcome("مشخصات گزارش ...").opened, QStringList("TRepPropertyForm"))
        << "always the installed one";
    EXPECT_EQ(outcome("مرتب سازي پيشرفته ...").opened, QStringList("TSortForm"));
    ASSERT_TRUE(QFile::link(QFile::symLinkTarget(library("RowSeek")), tree + "/RowSeek.so"));
    remove("RowSeek");
    EXPECT_EQ(outcome("جستجو ...").opened, QStringList("TSeekForm"));
}

TEST_F(CompanionBridge, RemembersWhatWasSearchedInEachColumn) {
    QString memory;
    const auto search = [&](int column, const QString& text) {
        items->grid.selectColumn(column);
        QString before;
        act = [&](Form& form) {
            auto* edit = form.component<QLineEdit>("SearchEdit");
            before = edit->text();
            edit->setText(text);
            form.component<QPushButton>("FindNextBtn")->click();
        };
        answered([&] { Grid_Search(items->grid, "code", "items", memory); });
        return before;
    };
    EXPECT_EQ(search(1, "شب"), "");
    EXPECT_EQ(items->rows.row(), 1);
    EXPECT_EQ(search(0, "3"), "");
    EXPECT_EQ(search(1, "مسكن"), "شب");
    EXPECT_EQ(items->rows.row(), 2);
    EXPECT_EQ(memory, "_NAME=مسكن;_CODE=3;");
    EXPECT_EQ(search(1, "a;b=c"), "مسكن") << "what would end an entry is no part of it";
    EXPECT_EQ(Get_Param(memory, "_CODE"), "3");
}

TEST_F(CompanionBridge, KeepsReportsOfTwoPagesApart) {
    openGroups();
    const auto entitle = [&](Page& page, const QString& title) {
        act = [&](Form& form) {
            form.component<QLineEdit>("TitleEdit")->setText(title);
            form.component<QPushButton>("OkBtn")->click();
        };
        choose(page, "مشخصات گزارش ...");
    };
    const auto titled = [&](Page& page) {
        QString title;
        act = [&](Form& form) { title = form.component<QLineEdit>("TitleEdit")->text(); };
        choose(page, "مشخصات گزارش ...");
        return title;
    };
    EXPECT_EQ(titled(*items), "عنوان items");
    entitle(*items, "گزارش يک");
    EXPECT_EQ(titled(*items), "گزارش يک");
    EXPECT_EQ(titled(*groups), "عنوان GrohTafsily2");
}

// --- giving up --------------------------------------------------------------------------------------

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
    QGuiApplication::clipboard()->setText("before");
    widgets::DataGrid& grid = items->grid;
    const QList<std::function<void()>> steps = {
        [&] { Export_Office(objects->global, grid, true, ".XLS"); },
        [&] { Export_Office(objects->global, grid, true, ".DOC"); },
        [&] { Export_Html(objects->global, grid, "عنوان"); },
        [&] { Copy_Grid(grid, true); },
        [&] { Export_Dbf(grid, path("ITEMS.DBF"), DbfText::Windows); },
    };
    const int width = grid.columnWidth(1);
    for (int step = 0; step < steps.size(); ++step) {
        EXPECT_THROW(steps[step](), data::SilentAbort) << step;
        EXPECT_EQ(given, step + 1);
    }
    for (const char* place : {"EXCEL", "WORD", "html"})
        EXPECT_TRUE(QDir(path(place)).isEmpty(QDir::Files)) << place;
    EXPECT_FALSE(QFile::exists(path("ITEMS.DBF")));
    EXPECT_EQ(clipboard(), "before");
    EXPECT_EQ(grid.columnWidth(1), width);
    EXPECT_EQ(items->rows.row(), 1);
    EXPECT_EQ(grid.selectedColumn(), 1);
    EXPECT_TRUE(items->form.updatesEnabled()) << "the window paints again";
}

TEST_F(Impatient, PrintsAndSearchesNothing) {
    EXPECT_EQ(outcome("چاپ ...").opened, QStringList()) << "no preview of half a grid";
    EXPECT_EQ(given, 1);
    act = [](Form& form) {
        form.component<QLineEdit>("SearchEdit")->setText("مسكن");
        form.component<QPushButton>("FindNextBtn")->click();
    };
    EXPECT_EQ(outcome("جستجو ...").said, QStringList());
    EXPECT_EQ(given, 2);
    EXPECT_EQ(items->rows.row(), 0);
}

}  // namespace

int main(int count, char** values) {
    QApplication application(count, values);
    testing::InitGoogleTest(&count, values);
    return RUN_ALL_TESTS();
}
