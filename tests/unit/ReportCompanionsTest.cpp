#include <QComboBox>

#include "ReportFixture.h"

namespace {

using ReportCompanionsTest = ReportFixture;

const auto kClose = [](Form& form) { form.setModalResult(widgets::mrCancel); };

TEST_F(ReportCompanionsTest, NothingToPrintIsAPageThatSaysSo) {
    showPeople();
    rows.close();
    const GridReport closed = reportOf();
    EXPECT_EQ(closed.pageCount(), 1);
    EXPECT_TRUE(painted(closed, 0).joined().contains(text("رديفي براي چاپ نيست.")));
    painted(closed, 1);
    grid.setGridColumns({});
    EXPECT_TRUE(painted(reportOf(), 0).joined().contains(text("ستوني براي چاپ ديده نمي شود.")));
    TDLLPrnParam nothing;
    auto* print = entry<companions::PrintForm_Show>("SheetOut", "PrintForm_Show");
    play({{"TPrintForm", kClose}}, [&] { print(&nothing); });
    print(nullptr);
    auto* advanced = entry<companions::PrintForm_Show>("SheetOut1", "PrintForm_Show");
    advanced(&nothing);
    EXPECT_EQ(messages.size(), 1);
    auto* setup = entry<companions::RepPropertyForm_Show>("ReportSetup", "RepPropertyForm_Show");
    play({{"TRepPropertyForm", [](Form& form) { click(form, "OkBtn"); }}, {"TRepPropertyForm", kClose}},
         [&] { setup("NoThing", "", nullptr); });
    EXPECT_EQ(messages.size(), 2) << "there is nowhere to keep them";
}

// --- the forms --------------------------------------------------------------------------------------

TEST_F(ReportCompanionsTest, PreviewTurnsPagesAndWritesAPdf) {
    showPeople();
    rows.moveTo(5);
    rows.setValue("grade", 7);
    const QString file = folder.filePath("PDF/J_BASE_MOZD_1.pdf");
    auto* print = entry<companions::PrintForm_Show>("SheetOut", "PrintForm_Show");
    TDLLPrnParam handed = parameters();
    TColorRows coloured{2, QColor(0xFFE0B0)};
    handed.ColorRows = {&coloured, nullptr};
    const auto page = [](Form& form) { return form.component<QLineEdit>("PageEdit")->text(); };
    play({{"TPrintForm",
           [&](Form& form) {
               EXPECT_EQ(rows.state(), data::Dataset::State::Browse) << "the row in edit was stored";
               EXPECT_EQ(page(form), "1");
               QWidget* area = form.component<QWidget>("PageArea");
               QTest::keyClick(area, Qt::Key_PageDown);
               EXPECT_EQ(page(form), "2");
               QTest::keyClick(area, Qt::Key_End);
               EXPECT_EQ(text("از ") + page(form), form.component<QLabel>("PagesLabel")->text());
               QTest::keyClick(area, Qt::Key_PageDown);
               click(form, "FirstBtn");
               QTest::keyClick(area, Qt::Key_PageUp);
               EXPECT_EQ(page(form), "1");
               auto* edit = form.component<QLineEdit>("PageEdit");
               edit->setFocus();
               edit->setText(text("۳"));
               QTest::keyClick(edit, Qt::Key_Return);
               EXPECT_EQ(page(form), "3");
               click(form, "PdfBtn");
           }},
          {"TPdfNameForm",
           [&](Form& form) {
               EXPECT_EQ(form.component<QLineEdit>("FileEdit")->text(), QDir::toNativeSeparators(file));
               click(form, "OkBtn");
           }},
          {"TPrintForm",
           [&](Form& form) {
               EXPECT_TRUE(QFile::exists(file));
               click(form, "sb_Closed");
           }}},
         [&] { print(&handed); });
    EXPECT_EQ(rows.row(), 5) << "the operator's row stays";
    EXPECT_EQ(server->execute("select grade from person where code='" + rows.text("code") + "'").rows[0][0],
              QVariant(7));
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_TRUE(written.readAll().trimmed().endsWith("%%EOF"));
    EXPECT_EQ(messages, QStringList());
    keep(file, "person.pdf");
}

TEST_F(ReportCompanionsTest, SalaryItemsInAPdf) {
    showItems();
    report::writePdf(report::makeReport(parameters(), ReportTable::read(grid, report::columnsOf(grid))),
                     folder.filePath("items.pdf"));
    EXPECT_GT(QFileInfo(folder.filePath("items.pdf")).size(), 1000);
    keep(folder.filePath("items.pdf"), "items.pdf");
}

TEST_F(ReportCompanionsTest, AnUnwritablePdfIsToldAndLeavesNothing) {
    showItems();
    QFile inTheWay(folder.filePath("PDF"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const QStringList before = QDir(folder.path()).entryList(QDir::AllEntries);
    auto* print = entry<companions::PrintForm_Show>("SheetOut", "PrintForm_Show");
    TDLLPrnParam handed = parameters();
    play({{"TPrintForm", [](Form& form) { click(form, "PdfBtn"); }},
          {"TPdfNameForm", [](Form& form) { click(form, "OkBtn"); }},
          {"TPrintForm",
           [this](Form& form) {
               EXPECT_EQ(messages.size(), 1);
               EXPECT_TRUE(messages.value(0).contains("J_BASE_MOZD_1.pdf"));
               click(form, "CloseBtn");
           }}},
         [&] { print(&handed); });
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries), before);
}

TEST_F(ReportCompanionsTest, AMachineWithoutAPrinterSaysSo) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "this machine has a printer";
    showItems();
    auto* print = entry<companions::PrintForm_Show>("SheetOut", "PrintForm_Show");
    TDLLPrnParam handed = parameters();
    play({{"TPrintForm", [](Form& form) { click(form, "PrintBtn"); }}, {"TPrintForm", kClose}},
         [&] { print(&handed); });
    EXPECT_EQ(messages, QStringList(text("چاپگري نصب نشده است. مي توانيد PDF بسازيد.")));
}

TEST_F(ReportCompanionsTest, PropertiesAreEditedAndUsed) {
    auto* setup = entry<companions::RepPropertyForm_Show>("ReportSetup", "RepPropertyForm_Show");
    const QString own = text(" مشخصات حقوق ");
    play({{"TRepPropertyForm",
           [&](Form& form) {
               EXPECT_EQ(form.component<QLineEdit>("TitleEdit")->text(), own.trimmed());
               write(form, "LeftEdit", text("abc"));
               click(form, "OkBtn");
               EXPECT_EQ(messages.size(), 1);
               write(form, "LeftEdit", text("۱۱۰"));
               click(form, "OkBtn");
               EXPECT_EQ(messages.size(), 2) << "more than 100 mm";
               write(form, "LeftEdit", text("100"));
               write(form, "RightEdit", text("100"));
               click(form, "OkBtn");
               EXPECT_EQ(messages.size(), 3) << "no room on the paper";
               EXPECT_FALSE(QFile::exists(folder.filePath("Data/Reports.ini")));
               write(form, "LeftEdit", text("۲۵"));
               write(form, "RightEdit", text("10.5"));
               click(form, "LandscapeRadio");
               click(form, "OkBtn");
           }}},
         [&] { setup("NoThing", own, &source); });
    ReportProperties stored = report::readProperties(folder.path(), "J_BASE_MOZD_1");
    EXPECT_EQ(stored.title, "") << "the page's own title is not the operator's";
    EXPECT_EQ(stored.margins, QMarginsF(25, 12, 10.5, 12));
    EXPECT_TRUE(stored.landscape);

    play(
        {
            {"TRepPropertyForm",
             [&](Form& form) {
                 write(form, "TitleEdit", text("حقوق مهر ماه"));
                 QTest::keyClick(form.component<QLineEdit>("TitleEdit"), Qt::Key_Return);
             }},
        },
        [&] { setup("NoThing", own, &source); });
    showItems();
    const GridReport report =
        report::makeReport(parameters(), ReportTable::read(grid, report::columnsOf(grid)));
    EXPECT_EQ(report.pageLayout().orientation(), QPageLayout::Landscape);
    const QString first = painted(report, 0).joined();
    EXPECT_TRUE(first.contains(text("حقوق مهر ماه")));
    EXPECT_FALSE(first.contains(text("مشخصات حقوق")));
    play({{"TRepPropertyForm",
           [&](Form& form) {
               EXPECT_EQ(form.component<QLineEdit>("TitleEdit")->text(), text("حقوق مهر ماه"));
               write(form, "TitleEdit", text("دور انداخته"));
               QTest::keyClick(&form, Qt::Key_Escape);
           }}},
         [&] { setup("NoThing", own, &source); });
    EXPECT_EQ(report::readProperties(folder.path(), "J_BASE_MOZD_1").title, text("حقوق مهر ماه"));
}

TEST_F(ReportCompanionsTest, AdvancedPrintChoosesOrdersAndGroups) {
    showPeople();
    auto* print = entry<companions::PrintForm_Show>("SheetOut1", "PrintForm_Show");
    TDLLPrnParam handed = parameters();
    play({{"TAdvPrintForm",
           [&](Form& form) {
               auto* list = form.component<QTableWidget>("ColumnList");
               ASSERT_EQ(list->rowCount(), 5);
               for (int row = 0; row < 5; ++row)
                   list->item(row, 0)->setCheckState(Qt::Unchecked);
               click(form, "OkBtn");
               EXPECT_EQ(messages.size(), 1) << "nothing is chosen";
               for (const int row : {0, 1, 2, 4})
                   list->item(row, 0)->setCheckState(Qt::Checked);
               list->setCurrentCell(1, 0);
               click(form, "DownBtn");
               EXPECT_EQ(list->item(2, 0)->text(), text("نام"));
               form.component<QComboBox>("GroupCombo")->setCurrentText(text("واحد سازماني"));
               click(form, "OkBtn");
           }},
          {"TPrintForm", [](Form& form) { click(form, "PdfBtn"); }},
          {"TPdfNameForm", [](Form& form) { click(form, "OkBtn"); }},
          {"TPrintForm", kClose}},
         [&] { print(&handed); });
    EXPECT_TRUE(QFile::exists(folder.filePath("PDF/J_BASE_MOZD_1.pdf")));
    keep(folder.filePath("PDF/J_BASE_MOZD_1.pdf"), "grouped.pdf");
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    host::applyAppearance(application);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
