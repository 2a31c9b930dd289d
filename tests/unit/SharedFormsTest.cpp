// How high the message dialog is, and when it scrolls.
#include <gtest/gtest.h>

#include "DlgMsg.h"

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

}  // namespace
