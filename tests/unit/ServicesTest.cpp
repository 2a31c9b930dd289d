// The small services that every page calls, on an empty company and with the host's own dialog.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include "DatabaseHelpers.h"
#include "Embedded.h"
#include "HostCompany.h"
#include "HostObjects.h"
#include "ModuleVariables.h"
#include "Untfmsg.h"
#include "UserRights.h"

namespace {

class Services : public testing::Test {
protected:
    static void SetUpTestSuite() {
        static QTemporaryDir folder;
        const QString file = folder.filePath("a.company");
        host::createEmptyCompany(file);
        objects = new host::HostObjects(tsql::open(file, tsql::OpenMode::Existing), folder.path());
        objects->connection().setMonitor([](const QString&) { ++sent; });
        _Global = &objects->global;
        _MyDatabase = &objects->database;
        _TempGridForm = objects->tempGridForm.get();
        _DlgMsg = objects->dlgMsg.get();
    }
    static void TearDownTestSuite() { delete objects; }

    static data::HostDatabase& db() { return objects->database; }
    static void run(const QString& sql) { objects->connection().execute(sql); }

    // What the dialog looks like while it is shown; it is then dismissed.
    static int shown(const QString& title, const QString& code, const std::function<void(TDlgMsg&)>& look) {
        QTimer::singleShot(0, [&] {
            look(*_DlgMsg);
            _DlgMsg->close();
        });
        return Show_Msg("متن", title, code);
    }

    static inline host::HostObjects* objects = nullptr;
    static inline int sent = 0;
};

TEST_F(Services, AskTheCatalogue) {
    sent = 0;
    EXPECT_TRUE(Exec_Sql(db(), ""));
    data::Query loose(nullptr);
    data::HostDatabase none{&loose, nullptr};
    EXPECT_FALSE(Exec_Sql(none, "select 1"));
    EXPECT_EQ(sent, 0);

    EXPECT_TRUE(Is_Object_Exist(db(), "  paymozd "));
    EXPECT_TRUE(Is_Object_Exist(db(), "sp_Is_Name_Repeated"));
    EXPECT_FALSE(Is_Object_Exist(db(), "it's not there"));
    run("select 1 as a into ##X");
    EXPECT_TRUE(Is_Column_Exist(db(), "##X", " A "));
    EXPECT_FALSE(Is_Column_Exist(db(), "X", "a"));
    EXPECT_TRUE(Is_Column_Exist(db(), "payroll", "CODE_20"));
    EXPECT_FALSE(Is_Column_Exist(db(), "payroll", "code_0x"));
}

TEST_F(Services, AskForValues) {
    run("insert into GrohTafsily2 values ('01', 'توليد ''الف''') insert into GrohTafsily2 values ('02', "
        "'فروش') "
        "insert into Tafsily2(Tafsily2) values ('0201')");
    EXPECT_EQ(Get_Top_Value(db(), "Tafsily2GrohCod", "02", "Tafsily2GrohNam", "GrohTafsily2"), "فروش");
    EXPECT_EQ(Get_Top_Value(db(), "Tafsily2GrohCod", "9'9", "Tafsily2GrohNam", "GrohTafsily2"), "");
    EXPECT_TRUE(Is_Name_Repeated(db(), "GrohTafsily2", "Tafsily2GrohNam", "تولـيد'الف'"));
    EXPECT_FALSE(Is_Name_Repeated(db(), "GrohTafsily2", "Tafsily2GrohNam", "توليد"));
    EXPECT_TRUE(Is_Depended(db(), "sp_M_Depended_GrohTafsily2", "02"));
    EXPECT_FALSE(Is_Depended(db(), "sp_M_Depended_GrohTafsily2", "01"));

    run("insert into UserPrivilege values ('1', 'grohtafsily2', '02')");
    QTimer::singleShot(0, [] { _TempGridForm->setModalResult(widgets::mrCancel); });
    EXPECT_FALSE(_TempGridForm->pick(Prepare_Group_Pick(*_Global, "02", "هزينه")));
    EXPECT_EQ(_TempGridForm->offered(), QStringList("02"));
    EXPECT_EQ(_TempGridForm->caption(), "انتخاب گروه هزينه");
}

TEST_F(Services, ReadTheRights) {
    for (const char* right : {"12", "121", "1203", "212"})
        run(QStringLiteral("insert into UserSdcDetail(StrId, Parent, [1]) values ('%1', '', 'Y')")
                .arg(right));
    EXPECT_EQ(Get_Rights_Tree(db(), "12", "1"), "12(Y),1203(Y),121(Y),");
    EXPECT_EQ(Get_Rights_Tree(db(), "no such", "1"), "");
    for (const auto& [user, copy, print] :
         {std::tuple(1, "YES", "YES"), std::tuple(2, "NO", "NO"), std::tuple(3, "", "")}) {
        _Global->UserId = user;
        Load_User_Rights(db(), *_Global);
        EXPECT_EQ(_Global->Copy_Right, copy) << user;
        EXPECT_EQ(_Global->Print_Right, print) << user;
    }
    _Global->UserId = 1;
}

TEST_F(Services, ShowMessages) {
    const auto left = [](const TDlgMsg& dialog) { return dialog.Memo1->x() * 1000 + dialog.Memo1->width(); };
    EXPECT_EQ(shown("", "",
                    [&](const TDlgMsg& dialog) {
                        EXPECT_TRUE(dialog.BBtnOK1->isVisible());
                        EXPECT_FALSE(dialog.I_Error->isVisible());
                        EXPECT_EQ(left(dialog), 6213);
                        EXPECT_EQ(dialog.caption(), dialog.DefaultTitle);
                    }),
              widgets::mrOk);
    EXPECT_EQ(shown("عنوان", "2w",
                    [&](const TDlgMsg& dialog) {
                        EXPECT_TRUE(dialog.BBtnOK2->isVisible() && dialog.BBtnCancel->isVisible());
                        EXPECT_TRUE(dialog.I_Warning->isVisible());
                        EXPECT_EQ(left(dialog), 5217);
                        EXPECT_EQ(dialog.Caption_Panel->caption(), "     عنوان");
                    }),
              widgets::mrCancel);
    EXPECT_EQ(shown("", "3qc", [](const TDlgMsg& dialog) { EXPECT_TRUE(dialog.BBtnNo->isVisible()); }),
              widgets::mrNo);
    shown("", "x", [](const TDlgMsg& dialog) {
        for (const QPushButton* button : {dialog.BBtnOK1, dialog.BBtnOK2, dialog.BBtnYes, dialog.BBtnNo})
            EXPECT_FALSE(button->isVisible());
    });
    // Once said, the word stays on the button.
    EXPECT_EQ(_DlgMsg->BBtnOK1->text(), "&تاييد");
    shown("ادامه", "1I", [](const TDlgMsg&) {});
    shown("", "1ER", [](const TDlgMsg& dialog) { EXPECT_EQ(dialog.BBtnOK1->text(), "ادامه"); });
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
