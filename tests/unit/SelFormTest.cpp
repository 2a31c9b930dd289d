// The file selection window, worked by keys and mouse as an operator does.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include "EventBoundary.h"
#include "HostContext.h"
#include "ModuleVariables.h"
#include "Selunit.h"

namespace {

class SelForm : public testing::Test {
protected:
    SelForm() {
        context.Install_Dir = disk.path();
        _Global = &context;
        for (const char* name : {"year/month/day", "year/empty", "other"})
            QDir(disk.path()).mkpath(name);
        for (const char* name : {"year/b.dbf", "year/A.DBF", "year/c.txt", "year/month/old.Dbf"}) {
            QFile file(path(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        }
        folders = form.component<QTreeWidget>("DirectoryListBox1");
        files = form.component<QListWidget>("FileListBox1");
        drives = form.component<QComboBox>("DriveComboBox1");
        name = form.component<QLineEdit>("FlopyEdit");
        form.setFolder(path("year"));
    }
    ~SelForm() override { _Global = nullptr; }

    QString path(const QString& below) const { return disk.filePath(below); }

    int shown(const std::function<void()>& act) {
        QObject::connect(&form, &widgets::Form::modalShown, &form, act, Qt::SingleShotConnection);
        return form.showModal();
    }
    // Escape as a last way out, so that a failing step does not hang.
    int shownAndLeft(const std::function<void()>& act) {
        return shown([&] {
            act();
            QTest::keyClick(&form, Qt::Key_Escape);
        });
    }
    static void doubleClick(QAbstractItemView& view, const QPoint& place) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    }
    QStringList listed() const {
        QStringList names;
        for (int row = 0; row < files->count(); ++row)
            names.append(files->item(row)->text());
        return names;
    }
    QStringList subfolders() const {
        QStringList names;
        const QTreeWidgetItem* opened = folders->topLevelItem(0);
        while (opened && opened->data(0, Qt::UserRole).toString() != form.folder())
            opened = opened->child(0);
        for (int child = 0; opened && child < opened->childCount(); ++child)
            names.append(opened->child(child)->text(0));
        return names;
    }

    QTemporaryDir disk;
    data::HostContext context;
    TSelForm form;
    QTreeWidget* folders;
    QListWidget* files;
    QComboBox* drives;
    QLineEdit* name;
};

TEST_F(SelForm, ReportsItsModalResult) {
    EXPECT_EQ(_SelForm, &form);
    for (QWidget* focused : QList<QWidget*>{name, folders, files, drives})
        EXPECT_EQ(shown([&] {
                      focused->setFocus();
                      QTest::keyClick(focused, Qt::Key_Escape);
                      if (form.isModalShown())
                          form.setModalResult(widgets::mrOk);
                  }),
                  widgets::mrCancel)
            << qPrintable(focused->objectName());
    EXPECT_EQ(shown([&] { form.component<QToolButton>("sb_Closed")->click(); }), widgets::mrCancel);
    EXPECT_EQ(shown([&] { form.component<QPushButton>("CancelBitBtn")->click(); }), widgets::mrCancel);
    EXPECT_EQ(shown([&] { form.component<QPushButton>("OkBitBtn")->click(); }), widgets::mrOk);
    EXPECT_EQ(shown([&] { QTest::keyClick(name, Qt::Key_Return); }), widgets::mrOk);
    EXPECT_EQ(shown([&] { form.closeForm(); }), widgets::mrCancel);
}

TEST_F(SelForm, StandsInTheMiddleOfTheScreen) {
    shownAndLeft([&] {
        const QSize room = form.screen()->size() - form.size();
        EXPECT_EQ(form.pos(), QPoint(room.width() / 2, room.height() / 2));
        EXPECT_EQ(form.size(), QSize(365, 274));
        EXPECT_FALSE(form.mask().isEmpty());
    });
}

TEST_F(SelForm, ShowsTheFilesOfTheMaskAndTakesTheirNames) {
    form.setFileName("  Table2.DBF ");
    EXPECT_EQ(form.fileName(), "Table2.DBF");
    EXPECT_EQ(listed(), QStringList({"A.DBF", "b.dbf"}));
    const auto centre = [&](int row) { return files->visualItemRect(files->item(row)).center(); };
    const int result = shown([&] {
        EXPECT_EQ(form.fileName(), "Table2.DBF") << "showing it chooses no file";
        QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, centre(0));
        EXPECT_EQ(form.fileName(), "A.DBF");
        QTest::keyClick(files, Qt::Key_Down);
        EXPECT_EQ(form.fileName(), "b.dbf");
        name->clear();
        QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, centre(1));
        EXPECT_EQ(form.fileName(), "b.dbf") << "a click counts on the chosen file too";
        doubleClick(*files, centre(0));
        if (form.isModalShown())
            form.setModalResult(widgets::mrCancel);
    });
    EXPECT_EQ(result, widgets::mrOk);
    QFile made(path("year/new.dbf"));
    ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    shownAndLeft([&] { EXPECT_TRUE(listed().contains("new.dbf")) << "a file made since then"; });
}

TEST_F(SelForm, WalksFoldersByKeyboardAndMouse) {
    EXPECT_EQ(subfolders(), QStringList({"empty", "month"}));
    shownAndLeft([&] {
        folders->setFocus();
        QTest::keyClick(folders, Qt::Key_Down);
        EXPECT_EQ(form.folder(), path("year")) << "a folder is chosen by opening it";
        QTest::keyClick(folders, Qt::Key_Down);
        QTest::keyClick(folders, Qt::Key_Return);
        EXPECT_EQ(form.folder(), path("year/month"));
        EXPECT_EQ(listed(), QStringList({"old.Dbf"}));
        EXPECT_EQ(subfolders(), QStringList({"day"}));
        QTest::keyClick(folders, Qt::Key_Backspace);
        EXPECT_EQ(form.folder(), path("year"));
        QTest::keyClick(folders, Qt::Key_Return);
        EXPECT_EQ(form.folder(), path("year/month")) << "the folder that was left is at hand";
        QTest::keyClick(folders, Qt::Key_Up);
        const QRect above = folders->visualItemRect(folders->currentItem());
        doubleClick(*folders, above.center());
        EXPECT_EQ(form.folder(), path("year"));
    });
    form.setFolder(QDir::rootPath());
    shownAndLeft([&] { QTest::keyClick(folders, Qt::Key_Backspace); });
    EXPECT_EQ(form.folder(), QDir::rootPath());
}

TEST_F(SelForm, BearsFoldersThatAreNotThere) {
    form.setFolder(path("year/gone/deeper"));
    EXPECT_EQ(form.folder(), path("year"));
    form.setFolder(path("year/empty"));
    QDir().rmdir(path("year/empty"));
    shownAndLeft([&] { EXPECT_EQ(form.folder(), path("year")); });
    EXPECT_TRUE(static_cast<widgets::Form&>(form).setProperty("folder", path("other")));
    EXPECT_EQ(form.folder(), path("other"));
    EXPECT_EQ(listed(), QStringList());
}

TEST_F(SelForm, OffersTheRootsAndFollowsTheFolder) {
    EXPECT_GE(drives->count(), 2);
    shownAndLeft([&] {
        const int home = drives->findData(QDir::homePath());
        ASSERT_GE(home, 0);
        form.setFolder(QDir::homePath() + "/.");
        EXPECT_EQ(drives->currentIndex(), home);
        drives->setFocus();
        QTest::keyClick(drives, Qt::Key_Home);
        EXPECT_EQ(form.folder(), QDir::rootPath());
        while (drives->currentIndex() < home)
            QTest::keyClick(drives, Qt::Key_Down);
        EXPECT_EQ(form.folder(), QDir::homePath());
        form.setFolder(QDir::rootPath());
        EXPECT_EQ(drives->currentData().toString(), QDir::rootPath());
    });
}

TEST_F(SelForm, PickersShowNoMenu) {
    shownAndLeft([&] {
        for (QWidget* picker : QList<QWidget*>{drives, folders, files}) {
            QContextMenuEvent event(QContextMenuEvent::Mouse, picker->rect().center(),
                                    picker->mapToGlobal(picker->rect().center()));
            QApplication::sendEvent(picker, &event);
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        }
    });
}

// KORVANTA_PICTURE names a file for a picture of the window.
TEST_F(SelForm, CanBePainted) {
    form.setFileName("Table2.DBF");
    shownAndLeft([&] {
        const QPixmap picture = form.grab();
        EXPECT_EQ(picture.size(), form.size());
        if (qEnvironmentVariableIsSet("KORVANTA_PICTURE"))
            picture.save(qEnvironmentVariable("KORVANTA_PICTURE"));
    });
}

}  // namespace

int main(int count, char** values) {
    testing::InitGoogleTest(&count, values);
    const QApplication application(count, values);
    return RUN_ALL_TESTS();
}
