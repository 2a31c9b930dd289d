// The file selection window, worked by keys and mouse as an operator does.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "HostContext.h"
#include "ModuleVariables.h"
#include "Selunit.h"

namespace {

class SelForm : public testing::Test {
protected:
    SelForm() {
        context.Install_Dir = disk.path();
        _Global = &context;
        QDir(disk.path()).mkpath("year/month/day");
        for (const char* name : {"year/b.dbf", "year/A.DBF", "year/c.txt", "year/month/old.Dbf"}) {
            QFile file(path(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        }
        form.setFolder(path("year"));
    }
    ~SelForm() override { _Global = nullptr; }

    QString path(const QString& below) const { return disk.filePath(below); }
    // Shows the window; Escape is a last way out, so that a failing step does not hang.
    int shown(const std::function<void()>& act) {
        QObject::connect(
            &form, &widgets::Form::modalShown, &form,
            [this, act] {
                act();
                if (form.isModalShown())
                    QTest::keyClick(files, Qt::Key_Escape);
            },
            Qt::SingleShotConnection);
        return form.showModal();
    }
    static void click(QAbstractItemView& view, const QPoint& place, bool twice = false) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        if (twice)
            QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    }
    QStringList listed() const {
        QStringList names;
        for (int row = 0; row < files->count(); ++row)
            names.append(files->item(row)->text());
        return names;
    }

    QTemporaryDir disk;
    data::HostContext context;
    TSelForm form;
    QTreeWidget* folders = form.component<QTreeWidget>("DirectoryListBox1");
    QListWidget* files = form.component<QListWidget>("FileListBox1");
    QComboBox* drives = form.component<QComboBox>("DriveComboBox1");
    QLineEdit* name = form.component<QLineEdit>("FlopyEdit");
};

TEST_F(SelForm, ShowsTheFilesOfTheMaskAndTakesTheirNames) {
    form.setFileName("  Table2.DBF ");
    EXPECT_EQ(listed(), QStringList({"A.DBF", "b.dbf"}));
    const auto centre = [&](int row) { return files->visualItemRect(files->item(row)).center(); };
    EXPECT_EQ(shown([&] {
                  EXPECT_EQ(form.fileName(), "Table2.DBF") << "showing it chooses no file";
                  click(*files, centre(0));
                  EXPECT_EQ(form.fileName(), "A.DBF");
                  QTest::keyClick(files, Qt::Key_Down);
                  EXPECT_EQ(form.fileName(), "b.dbf");
                  name->clear();
                  click(*files, centre(1));
                  EXPECT_EQ(form.fileName(), "b.dbf") << "a click counts on the chosen file too";
                  click(*files, centre(0), true);
              }),
              widgets::mrOk);
    QFile::remove(path("year/b.dbf"));
    EXPECT_EQ(shown([&] { EXPECT_EQ(listed(), QStringList("A.DBF")) << "as it is by then"; }),
              widgets::mrCancel);
}

TEST_F(SelForm, WalksFoldersByKeyboardAndMouse) {
    shown([&] {
        folders->setFocus();
        QTest::keyClick(folders, Qt::Key_Down);
        EXPECT_EQ(form.folder(), path("year")) << "a folder is chosen by opening it";
        QTest::keyClick(folders, Qt::Key_Down);
        QTest::keyClick(folders, Qt::Key_Return);
        EXPECT_EQ(form.folder(), path("year/month"));
        EXPECT_EQ(listed(), QStringList({"old.Dbf"}));
        QTest::keyClick(folders, Qt::Key_Backspace);
        EXPECT_EQ(form.folder(), path("year"));
        QTest::keyClick(folders, Qt::Key_Return);
        EXPECT_EQ(form.folder(), path("year/month")) << "the folder that was left is at hand";
        QTest::keyClick(folders, Qt::Key_Up);
        click(*folders, folders->visualItemRect(folders->currentItem()).center(), true);
        EXPECT_EQ(form.folder(), path("year"));
        form.setFolder(QDir::homePath());
        QTest::keyClick(drives, Qt::Key_Home);
        EXPECT_EQ(form.folder(), QDir::rootPath());
    });
    form.setFolder(path("year/gone/deeper"));
    EXPECT_EQ(form.folder(), path("year"));
}

}  // namespace
