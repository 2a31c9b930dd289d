// The text helpers: typed keys, parameter texts, padding, colours and detail lists.
#include <gtest/gtest.h>

#include <QTemporaryFile>

#include "CodePage.h"
#include "Errors.h"
#include "FormLook.h"
#include "SettingsSize.h"
#include "ShareList.h"
#include "TextHelpers.h"

namespace {

data::HostContext keyboard(const char* kind, const char* platform) {
    data::HostContext context;
    context.Keyboard = QString::fromLatin1(kind);
    context.Platform = QString::fromLatin1(platform);
    return context;
}

}  // namespace

TEST(PersianKeys, FollowKeyboardAndPlatform) {
    const data::HostContext windows = keyboard("WIN", "Windows NT");
    const data::HostContext other = keyboard("DOS", "Windows NT");
    const data::HostContext older = keyboard("DOS", "Windows 95");
    EXPECT_EQ(Fix_Persian_Key(windows, u'ى'), u'ى');
    EXPECT_EQ(Fix_Persian_Key(other, u'ى'), u'ي');
    EXPECT_EQ(Fix_Persian_Key(other, u'ک'), u'ك');
    EXPECT_EQ(Fix_Persian_Key(other, u'÷'), u'پ');
    EXPECT_EQ(Fix_Persian_Key(other, u'پ'), u'ژ');
    EXPECT_EQ(Fix_Persian_Key(older, u'÷'), u'÷');
    EXPECT_EQ(Fix_Persian_Key(older, u'ى'), u'ي');
    EXPECT_EQ(Fix_Persian_Key(other, u'a'), u'a');
    // A letter that the code page lacks is not the correction's business.
    EXPECT_EQ(Fix_Persian_Key(other, QChar(0x4E2D)), QChar(0x4E2D));
}

TEST(ParameterTexts, AreReadAndWritten) {
    EXPECT_EQ(Get_Param("COPY=YES;PRINT=NO;", "print"), "NO");
    EXPECT_EQ(Get_Param("COPY=YES;PRINT=NO;", "SAVE"), "");
    EXPECT_EQ(Get_Param("a=x", "A"), "X");
    EXPECT_EQ(Get_Param("USERNAME=Ali;NAME=Sara;", "NAME"), "ALI");
    EXPECT_EQ(Get_Param("Minute=دقيقه;", "minute"), "دقيقه");
    EXPECT_EQ(Set_Param("A=1;B=2;", "a", "x"), "A=X;B=2;");
    EXPECT_EQ(Set_Param("A=1;", "b", "2"), "A=1;B=2;");
    EXPECT_EQ(Set_Param("A=1", "a", "2"), "A=2;");
}

TEST(Texts, ArePaddedAndStripped) {
    EXPECT_EQ(Pad_Left("123", 5), "  123");
    EXPECT_EQ(Pad_Left("123456", 5), "12345");
    EXPECT_EQ(Pad_Left_Char("7", u'0', 3), "007");
    EXPECT_EQ(Strip_Blanks(" حـق  مسكن "), "حقمسكن");
    EXPECT_TRUE(Is_Key_Allowed("NUM", u'7'));
    EXPECT_TRUE(Is_Key_Allowed("NUM", QChar(8)));
    EXPECT_FALSE(Is_Key_Allowed("NUM", u'a'));
    EXPECT_TRUE(Is_Key_Allowed("", u'a'));
}

TEST(CodePage, FoldsWhatItCanAndRefusesTheRest) {
    EXPECT_EQ(data::foldToCodePage("ملی"), "ملي");
    EXPECT_EQ(data::foldDigits("۰۹٠٩3"), "09093");
    EXPECT_EQ(data::codePageByte(data::kMark), 0xD6);
    EXPECT_THROW(data::foldToCodePage("中"), data::Refusal);
    EXPECT_THROW(data::foldToCodePage(QString::fromUtf8("حق 😀")), data::Refusal);
    EXPECT_EQ(data::foldToCodePage("پژچگكک — «»"), "پژچگكک — «»");
}

TEST(Colors, AreNamesOrBlueGreenRed) {
    EXPECT_EQ(Color_From_Text("0x00E1FFFF"), QColor(0xFF, 0xFF, 0xE1));
    EXPECT_EQ(Color_From_Text("clyellow"), QColor(0xFF, 0xFF, 0x00));
    EXPECT_FALSE(Color_From_Text("clNoSuch").isValid());
    EXPECT_FALSE(Color_From_Text("0xE1FFFF").isValid());
    EXPECT_FALSE(Color_From_Text("").isValid());
}

TEST(DetailLists, AreReadEntryByEntry) {
    const auto shares = definition::parseItemShares(" (code_1*100)+(code_14*12.5) ");
    ASSERT_TRUE(shares);
    ASSERT_EQ(shares->size(), 2);
    EXPECT_EQ(shares->at(1).code, 14);
    EXPECT_EQ(shares->at(1).share, 12.5);
    EXPECT_TRUE(definition::parseItemShares("")->isEmpty());
    // A fixed amount, a torn entry and anything else that could reach a statement is no list.
    for (const char* text :
         {"1500000", "+20", "(code_1*", "(code_1*100)+(code_2", "(code_x*1)", "(code_1*1;drop)"})
        EXPECT_FALSE(definition::parseItemShares(text)) << text;
}

TEST(SettingsFiles, AreNotReadWhereTheyCannotBeSome) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open() && file.resize(1 << 20));
    EXPECT_NO_THROW(data::requireSettingsSize(file.fileName()));
    ASSERT_TRUE(file.resize((1 << 20) + 1));
    try {
        data::requireSettingsSize(file.fileName());
        ADD_FAILURE();
    } catch (const data::Refusal& refusal) {
        EXPECT_TRUE(refusal.text().contains(file.fileName()));
    }
}
