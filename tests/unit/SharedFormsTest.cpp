// The size of the message dialog, and what the pick list leaves behind.
#include <QTest>

#include "CompanyFixture.h"
#include "TempGridForm.h"

namespace {

TEST(MessageDialog, CountsTheLinesThatAReaderSees) {
    TDlgMsg dialog;
    dialog.setMessage("يك\nدو\nسه\nچهار\nپنج");
    EXPECT_EQ(dialog.Memo1->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    EXPECT_EQ(dialog.height(), 135);
    dialog.setMessage("يك\nدو\nسه\nچهار");
    EXPECT_EQ(dialog.memoLines(), 4);
    EXPECT_EQ(dialog.Memo1->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    EXPECT_EQ(dialog.height(), 141);
    dialog.setMessage(QString("کلمه ").repeated(40));
    const int lines = dialog.memoLines();
    EXPECT_GT(lines, 4);
    EXPECT_EQ(dialog.height(), 141) << "a dialog once higher stays so";
    dialog.Memo1->resize(dialog.Memo1->width() / 2, dialog.Memo1->height());
    EXPECT_GT(dialog.memoLines(), lines);
}

using PickList = CompanyFixture;

TEST_F(PickList, BeginsAtTheCurrentCodeAndDropsItsTable) {
    run("insert into GrohTafsily2 values ('01', 'توليد'), ('02', 'فروش'), ('03', 'مالي')");
    run("select Tafsily2GrohCod code, Tafsily2GrohNam name into ##picked from GrohTafsily2");
    TTempGridForm form(&objects->connection());
    form.First = {"كد", "code", 40};
    form.Second = {"نام", "name", 200};
    form.KeyField = "code";
    form.CurrentCode = "02";
    form.WorkTable = "##picked";
    QObject::connect(&form, &widgets::Form::modalShown, &form, [&] {
        EXPECT_EQ(form.offered(), (QStringList{"01", "02", "03"}));
        EXPECT_FALSE(form.choose("09"));
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(form.pick("select * from ##picked order by code"), "02");
    EXPECT_THROW(run("select * from ##picked"), data::ServerError);
}

}  // namespace
