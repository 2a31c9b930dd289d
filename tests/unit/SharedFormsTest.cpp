// The message dialog and the pick list, worked by keys as an operator does.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "DlgMsg.h"
#include "Embedded.h"
#include "Errors.h"
#include "TempGridForm.h"

namespace {

// Shows the dialog with two buttons and lets `act` run inside.
int answered(TDlgMsg& dialog, const std::function<void()>& act) {
    dialog.BBtnYes->show();
    dialog.BBtnNo->show();
    dialog.CloseResult = widgets::mrNo;
    QObject::connect(&dialog, &widgets::Form::modalShown, &dialog, act, Qt::SingleShotConnection);
    return dialog.showModal();
}

void press(QWidget& form, Qt::Key key) {
    QWidget* focus = form.focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &form, key);
}

TEST(MessageDialog, AnswersToKeysAndButtons) {
    TDlgMsg dialog;
    EXPECT_EQ(answered(dialog, [&] { press(dialog, Qt::Key_Escape); }), widgets::mrNo);
    EXPECT_EQ(answered(dialog, [&] { press(dialog, Qt::Key_Return); }), widgets::mrYes);
    EXPECT_EQ(answered(dialog, [&] { dialog.sb_Closed->click(); }), widgets::mrNo);
    EXPECT_EQ(answered(dialog,
                       [&] {
                           press(dialog, Qt::Key_Left);
                           press(dialog, Qt::Key_Return);
                       }),
              widgets::mrNo);
    // A key that means nothing leaves it open.
    EXPECT_EQ(answered(dialog,
                       [&] {
                           press(dialog, Qt::Key_F5);
                           EXPECT_TRUE(dialog.isModalShown());
                           dialog.BBtnYes->click();
                       }),
              widgets::mrYes);
}

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

class PickList : public testing::Test {
protected:
    PickList() : connection(tsql::open(":memory:", tsql::OpenMode::Create)), form(connection.get()) {
        connection->execute("create table groups(code varchar(2), name varchar(50))");
        connection->execute(
            "insert into groups values ('01', 'توليد') insert into groups values ('02', 'فروش') "
            "insert into groups values ('03', 'مالي')");
        form.First = {"كد", "code", 40};
        form.Second = {"نام", "name", 200};
        form.KeyField = "code";
    }

    std::optional<QString> picked(const std::function<void()>& act, const QString& where = QString()) {
        connection->execute("select code, name into ##picked from groups " + where);
        form.WorkTable = "##picked";
        QObject::connect(&form, &widgets::Form::modalShown, &form, act, Qt::SingleShotConnection);
        const auto key = form.pick("select * from ##picked order by code");
        EXPECT_THROW(connection->execute("select * from ##picked"), data::ServerError);
        return key;
    }

    std::unique_ptr<data::Connection> connection;
    TTempGridForm form;
};

TEST_F(PickList, GivesTheRowThatKeysChoose) {
    form.CurrentCode = "02";
    EXPECT_EQ(picked([&] { press(form, Qt::Key_Return); }), "02");
    EXPECT_EQ(picked([&] {
                  EXPECT_EQ(form.offered(), (QStringList{"01", "02", "03"}));
                  press(form, Qt::Key_Down);
                  press(form, Qt::Key_Down);
                  press(form, Qt::Key_Return);
              }),
              "03");
    EXPECT_EQ(picked([&] { EXPECT_TRUE(form.choose("01")); }), "01");
    EXPECT_EQ(picked([&] {
                  EXPECT_FALSE(form.choose("09"));
                  press(form, Qt::Key_Escape);
              }),
              std::nullopt);
}

TEST_F(PickList, NarrowsToWhatIsTyped) {
    EXPECT_EQ(picked([&] {
                  // The Farsi yeh and Persian digits find what is stored with the others.
                  form.component<QLineEdit>("SearchEdit")->setText("مالی");
                  EXPECT_EQ(form.offered(), QStringList("03"));
                  form.component<QLineEdit>("SearchEdit")->setText("۲");
                  EXPECT_EQ(form.offered(), QStringList("02"));
                  press(form, Qt::Key_Return);
              }),
              "02");
}

TEST_F(PickList, OffersNothingWhereThereIsNothing) {
    EXPECT_EQ(picked(
                  [&] {
                      EXPECT_TRUE(form.offered().isEmpty());
                      press(form, Qt::Key_Return);
                      EXPECT_TRUE(form.isModalShown());
                      press(form, Qt::Key_Escape);
                  },
                  "where code='99'"),
              std::nullopt);
}

}  // namespace

int main(int count, char** values) {
    QApplication application(count, values);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&count, values);
    return RUN_ALL_TESTS();
}
