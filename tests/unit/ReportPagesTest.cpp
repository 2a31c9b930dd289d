#include <QHeaderView>
#include <QProgressDialog>

#include "ReportFixture.h"

namespace {

using ReportPagesTest = ReportFixture;

// --- properties -------------------------------------------------------------------------------------

TEST_F(ReportPagesTest, PropertiesAreKeptPerGridKey) {
    ReportProperties changed;
    changed.title = text("فهرست، «حقوق»؛ 1404");
    changed.paper = "A5";
    changed.landscape = true;
    changed.margins = QMarginsF(7.5, 20, 10, 30);
    changed.titleSize = 18;
    changed.totals = false;
    report::storeProperties(folder.path(), "J_BASE_MOZD_1", changed);
    EXPECT_EQ(report::readProperties(folder.path(), "J_BASE_MOZD_1"), changed);
    EXPECT_EQ(report::readProperties(folder.path(), "J_BASE_TAX_1"), ReportProperties());
    report::storeProperties(folder.path(), "J_BASE_TAX_1", {});
    EXPECT_EQ(report::readProperties(folder.path(), "J_BASE_MOZD_1"), changed);
}

TEST_F(ReportPagesTest, BrokenPropertiesGiveWayToDefaults) {
    QDir(folder.path()).mkpath("Data");
    QFile file(folder.filePath("Data/Reports.ini"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "[K]\nTitle=T\nPaper=Papyrus\nLandscape=perhaps\nLeftMargin=90\nRightMargin=95\nTopMargin=-1\n"
        "BottomMargin=many\nTitleSize=4000\nBodySize=11\nTotals=false\n");
    file.close();
    const ReportProperties read = report::readProperties(folder.path(), "K");
    EXPECT_EQ(read.title, "T");
    EXPECT_EQ(read.paper, "A4");
    EXPECT_FALSE(read.landscape);
    EXPECT_EQ(read.margins, QMarginsF(90, 12, 12, 12)) << "the right margin would leave no room";
    EXPECT_EQ(read.titleSize, ReportProperties().titleSize);
    EXPECT_EQ(read.bodySize, 11);
    EXPECT_FALSE(read.totals);
}

TEST_F(ReportPagesTest, PropertiesThatCannotBeWrittenAreRefused) {
    QFile inTheWay(folder.filePath("Data"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    ReportProperties changed;
    changed.bodySize = 12;
    EXPECT_THROW(report::storeProperties(folder.path(), "K", changed), data::Refusal);
    EXPECT_EQ(report::readProperties(folder.path(), "K"), ReportProperties());
    EXPECT_THROW(report::storeProperties(folder.path(), "", changed), data::Refusal);
    changed.margins = QMarginsF(0, 0, 101, 0);
    QTemporaryDir good;
    EXPECT_THROW(report::storeProperties(good.path(), "K", changed), data::Refusal);
    EXPECT_FALSE(QFile::exists(good.filePath("Data/Reports.ini")));
}

// --- files ------------------------------------------------------------------------------------------

TEST_F(ReportPagesTest, GivingUpLeavesNoFile) {
    server->execute("create table long_list (code int, name varchar(50))");
    server->execute("insert into long_list values (1, 'كاركنان')");
    for (int doubled = 0; doubled < 17; ++doubled)
        server->execute("insert into long_list select code, name from long_list");
    rows.setTableName("long_list");
    rows.setIndexFieldNames("code");
    show({{.field = "code", .title = "كد", .width = 60}, {.field = "name", .title = "نام", .width = 90}});
    const GridReport report = reportOf();
    QTimer operators;
    QObject::connect(&operators, &QTimer::timeout, [] {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<QProgressDialog*>(widget))
                dialog->cancel();
    });
    operators.start(0);
    const QString file = folder.filePath("PDF/list.pdf");
    EXPECT_THROW(report::writePdf(report, file), data::SilentAbort);
    EXPECT_TRUE(QDir(folder.filePath("PDF")).isEmpty(QDir::Files | QDir::Hidden));
}

// --- pages ------------------------------------------------------------------------------------------

TEST_F(ReportPagesTest, PagesRunFromTheRightWithTitlesOnEachOfThem) {
    showPeople();
    const GridReport report = reportOf();
    ASSERT_GT(report.pageCount(), 3);
    QStringList codes;
    for (int page = 0; page < report.pageCount(); ++page) {
        const Painted sheet = painted(report, page);
        EXPECT_GT(sheet.placeOf(text("كد")).x(), sheet.placeOf(text("نام خانوادگي")).x());
        EXPECT_GT(sheet.placeOf(text("نام خانوادگي")).x(), sheet.placeOf(text("گروه")).x());
        EXPECT_TRUE(sheet.joined().contains(text("كاركنان")));
        EXPECT_TRUE(sheet.joined().contains(text("سه ماهه دوم")));
        EXPECT_TRUE(sheet.joined().contains("1404/07/15"));
        const QString count = QString::number(report.pageCount());
        const QStringList words = sheet.words();
        const qsizetype of = words.indexOf(text("از"));
        ASSERT_GT(of, 0) << sheet.joined().toStdString();
        EXPECT_TRUE(words.contains(count));
        EXPECT_TRUE(words.contains(QString::number(page + 1)));
        for (const QString& word : words)
            if (word.size() == 8 && !word.contains('/') && word.toInt() > 0)
                codes.append(word);
        for (const Painted::Text& each : sheet.texts) {
            EXPECT_GT(each.place.x(), 12 / 25.4 * 72 - 1) << each.text.toStdString();
            EXPECT_LT(each.place.y(), (297 - 12) / 25.4 * 72 + 1) << each.text.toStdString();
        }
    }
    QStringList stored;
    for (int row = 0; row < rows.recordCount(); ++row)
        stored.append(rows.valueAt(row, rows.columnIndex("code")).toString().trimmed());
    EXPECT_EQ(codes, stored) << "each row once, in the grid's order";
}

TEST_F(ReportPagesTest, AmountsAreTotalledAndCodesAreNot) {
    server->execute("create table amounts(code int, name varchar(50), amount float, rate int)");
    server->execute("insert into amounts values(1, 'a', 1500000.25, 3)");
    server->execute("insert into amounts values(2, 'b', -500000, NULL)");
    server->execute("insert into amounts values(3, 'a', 2000000, 4)");
    rows.setTableName("amounts");
    rows.setIndexFieldNames("code DESC");
    show({{.field = "code", .title = "كد", .kind = ColumnKind::Code},
          {.field = "name", .title = "نام", .kind = ColumnKind::Name},
          {.field = "amount", .title = "مبلغ", .kind = ColumnKind::Number, .displayFormat = "###,###,##0.##"},
          {.field = "rate", .title = "نرخ", .kind = ColumnKind::Number},
          {.field = "gone", .title = "هيچ", .kind = ColumnKind::Number}});
    QStringList words = painted(reportOf(), 0).words();
    EXPECT_TRUE(words.contains("3,000,000.25")) << words.join('|').toStdString();
    EXPECT_TRUE(words.contains("-500,000"));
    EXPECT_TRUE(words.contains("7"));
    EXPECT_FALSE(words.contains("6")) << "the sum of the codes";
    EXPECT_LT(words.indexOf("2,000,000"), words.indexOf("-500,000")) << "the grid's order";
    ReportProperties without;
    without.totals = false;
    EXPECT_FALSE(painted(reportOf(without), 0).words().contains("3,000,000.25"));

    words = painted(reportOf({}, {1, true, false}), 0).words();
    EXPECT_TRUE(words.contains("3,500,000.25")) << "the sum of group a";
    EXPECT_TRUE(words.contains("3,000,000.25"));
    EXPECT_EQ(reportOf({}, {1, true, true}).pageCount(), 2);
    EXPECT_FALSE(painted(reportOf({}, {1, false, false}), 0).words().contains("3,500,000.25"));
}

TEST_F(ReportPagesTest, WideGridsGoOnToTheSide) {
    QStringList fields;
    QList<widgets::GridColumn> columns{{.field = "code", .title = "كد", .kind = ColumnKind::Code}};
    for (int i = 1; i <= 20; ++i) {
        fields.append(text("c%1 varchar(60)").arg(i));
        columns.append({.field = text("c%1").arg(i), .title = text("T%1").arg(i)});
    }
    server->execute("create table wide(code int, " + fields.join(',') + ")");
    server->execute("insert into wide(code, c1, c20) values(77, '" + QString(60, 'w') + "', 'last')");
    for (int i = 2; i < 20; ++i)
        server->execute(text("update wide set c%1='some thirty letters of a text'").arg(i));
    rows.setTableName("wide");
    show(columns);
    grid.setColumnHidden(3, true);
    grid.horizontalHeader()->moveSection(20, 1);
    const GridReport report = reportOf();
    ASSERT_GT(report.pageCount(), 1);
    QStringList titles;
    for (int page = 0; page < report.pageCount(); ++page) {
        const Painted sheet = painted(report, page);
        EXPECT_TRUE(sheet.words().contains("77")) << "each page tells which rows it shows";
        for (const Painted::Text& each : sheet.texts) {
            EXPECT_GE(each.size, 6.4) << "unreadable: " << each.text.toStdString();
            if (each.text.startsWith('T'))
                titles.append(each.text);
        }
    }
    QStringList expected{"T20"};
    for (int i = 1; i < 20; ++i)
        if (i != 3)
            expected.append(text("T%1").arg(i));
    EXPECT_EQ(titles, expected) << "visible columns once each, as the operator has ordered them";
}

TEST_F(ReportPagesTest, NumbersAreNeverCut) {
    server->execute("create table long(code int, name varchar(30), amount float)");
    server->execute(
        "insert into long select p.code+0, p.family, 12345 from person p cross join person q where q.code "
        "< '00000003'");
    server->execute("insert into long values(999999, 'z', 123456789012)");
    rows.setTableName("long");
    rows.setIndexFieldNames("code DESC");
    show({{.field = "code", .title = "كد", .kind = ColumnKind::Code},
          {.field = "name", .title = "نام"},
          {.field = "amount",
           .title = "مبلغ",
           .kind = ColumnKind::Number,
           .displayFormat = "###,###,###,##0.##"}});
    ReportProperties narrow;
    narrow.paper = "A5";
    narrow.margins = QMarginsF(50, 12, 50, 12);
    for (const ReportProperties& properties : {ReportProperties(), narrow}) {
        const QStringList words = painted(reportOf(properties), 0).words();
        EXPECT_TRUE(words.contains("999999"));
        EXPECT_TRUE(words.contains("123,456,789,012")) << words.join('|').toStdString();
    }
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    host::applyAppearance(application);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
