#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLibrary>
#include <QLineEdit>
#include <QPaintEngine>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "Appearance.h"
#include "CompanionEntries.h"
#include "DataGrid.h"
#include "Dataset.h"
#include "Embedded.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "Formpay.h"
#include "HostCompany.h"
#include "ReportOutput.h"

using report::GridReport;
using report::ReportProperties;
using report::ReportTable;
using widgets::ColumnKind;
using widgets::Form;

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

// The texts painted on a page and where they begin at their left, in points.
struct Painted {
    struct Text {
        QString text;
        QPointF place;
        qreal size;
    };
    QList<Text> texts;

    QStringList words() const {
        QStringList result;
        for (const Text& each : texts)
            result.append(each.text);
        return result;
    }
    // What stands on one line, joined: an engine splits a text where its direction changes.
    QString joined() const { return words().join(u' '); }
    QPointF placeOf(const QString& wanted) const {
        for (const Text& each : texts)
            if (each.text == wanted)
                return each.place;
        ADD_FAILURE() << "not painted: " << wanted.toStdString();
        return {};
    }
};

class Recorder : public QPaintDevice {
public:
    Painted painted;

    QPaintEngine* paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return 72;
            case PdmWidth:
            case PdmHeight:
                return 2000;
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return int(devicePixelRatioFScale());
            default:
                return 0;
        }
    }

private:
    class Engine : public QPaintEngine {
    public:
        explicit Engine(Recorder* recorder) : QPaintEngine(AllFeatures), m_recorder(recorder) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawTextItem(const QPointF& place, const QTextItem& item) override {
            m_recorder->painted.texts.append({item.text().trimmed(), painter()->transform().map(place),
                                              item.font().pixelSize() * painter()->transform().m11()});
        }
        Type type() const override { return User; }

    private:
        Recorder* m_recorder;
    };
    mutable Engine m_engine{this};
};

class ReportCompanionsTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        const QString file = folder.filePath("company.kdb");
        host::createDemoCompany(file);
        server = tsql::open(file, tsql::OpenMode::Existing);
        widgets::EventBoundary::setMessageSink([this](const QString& message) { messages.append(message); });
        rows.setConnection(server.get());
        source.setProperty(companions::ReportSource::kGridKey, "J_BASE_MOZD_1");
        source.setProperty(companions::ReportSource::kInstallDir, folder.path());
    }
    void TearDown() override {
        widgets::EventBoundary::setMessageSink({});
        rows.close();
    }

    void showItems() {
        rows.setTableName("Paymozd");
        rows.setRestriction("codemah=' 7'");
        rows.setIndexFieldNames("Code_field");
        QList<widgets::GridColumn> columns;
        for (const forms::PageColumn& column : forms::formpay().columns)
            if (column.grid.field != "Payfix")
                columns.append(column.grid);
        show(columns);
    }
    void showPeople() {
        rows.setTableName("person");
        rows.setIndexFieldNames("code");
        show({{.field = "code", .title = "كد", .width = 60, .kind = ColumnKind::Code},
              {.field = "name", .title = "نام", .width = 90, .kind = ColumnKind::Name},
              {.field = "family", .title = "نام خانوادگي", .width = 120, .kind = ColumnKind::Name},
              {.field = "depart", .title = "واحد سازماني", .width = 80, .kind = ColumnKind::Code},
              {.field = "grade",
               .title = "گروه",
               .width = 60,
               .kind = ColumnKind::Number,
               .displayFormat = "###,###,##0.##"}});
    }
    void show(const QList<widgets::GridColumn>& columns) {
        grid.setGridColumns(columns);
        grid.setDataset(&rows);
        rows.open();
        grid.resize(700, 300);
        grid.show();
    }

    GridReport reportOf(const ReportProperties& properties = {}, const report::Grouping& grouping = {}) {
        return {ReportTable::read(grid, report::columnsOf(grid)),
                properties,
                {{text("كاركنان"), text(" "), text("سه ماهه دوم")}, "1404/07/15", {}},
                {},
                grouping};
    }
    Painted painted(const GridReport& report, int page) {
        Recorder recorder;
        QPainter painter(&recorder);
        report.paint(painter, page);
        painter.end();
        return recorder.painted;
    }

    TDLLPrnParam parameters() {
        TDLLPrnParam result;
        result.Source = &source;
        result.Grid = &grid;
        result.Title1 = text(" مشخصات حقوق ");
        result.CurrentDate = "1404/07/15";
        result.HostText2 = folder.path();
        result.Connection = server.get();
        result.GridKey = "J_BASE_MOZD_1";
        return result;
    }

    // The entry point of a library that was built beside this program.
    template <class Entry>
    Entry* entry(const char* library, const char* name) {
        QLibrary loaded(QDir(QCoreApplication::applicationDirPath())
                            .filePath(text("../DLLS/SharedForms/%1.so").arg(text(library))));
        auto* found = reinterpret_cast<Entry*>(loaded.resolve(name));
        EXPECT_NE(found, nullptr) << loaded.errorString().toStdString();
        return found;
    }

    // Steps of an operator: each runs once a form of that class has come to the front.
    using Step = std::pair<const char*, std::function<void(Form&)>>;
    void play(const QList<Step>& steps, const std::function<void()>& call) {
        int next = 0;
        QTimer timer;
        QElapsedTimer patience;
        patience.start();
        QObject::connect(&timer, &QTimer::timeout, [&] {
            Form* front = Form::front();
            if (front == nullptr || !front->isModalShown())
                return;
            if (next < steps.size() && front->className() == steps[next].first) {
                shoot(*front);
                // A step may open the next form and return only when that is closed; a timer whose handler
                // has not returned is silent.
                QTimer::singleShot(0, front, [&, front, step = next++] { steps[step].second(*front); });
                return;
            }
            if (next == steps.size() || patience.elapsed() > 20000) {
                ADD_FAILURE() << "left open: " << front->className().toStdString();
                front->setModalResult(widgets::mrCancel);
            }
        });
        timer.start(10);
        call();
        timer.stop();
        EXPECT_EQ(next, steps.size());
    }
    static void click(Form& form, const char* button) {
        auto* found = form.component<QAbstractButton>(QLatin1String(button));
        ASSERT_NE(found, nullptr) << button;
        found->click();
    }
    static void write(Form& form, const char* edit, const QString& entered) {
        auto* found = form.component<QLineEdit>(QLatin1String(edit));
        ASSERT_NE(found, nullptr) << edit;
        found->setText(entered);
    }
    // Pictures for who wants to look at them: KORVANTA_SHOTS names a folder.
    static void shoot(Form& form) {
        static int number = 0;
        const QString shots = qEnvironmentVariable("KORVANTA_SHOTS");
        if (!shots.isEmpty())
            form.grab().save(text("%1/%2-%3.png").arg(shots).arg(++number).arg(form.className()));
    }
    static void keep(const QString& file, const char* name) {
        const QString shots = qEnvironmentVariable("KORVANTA_SHOTS");
        if (!shots.isEmpty())
            QFile::copy(file, shots + u'/' + QLatin1String(name));
    }

    QTemporaryDir folder;
    std::unique_ptr<data::Connection> server;
    data::Dataset rows;
    widgets::DataGrid grid;
    QObject source;
    QStringList messages;
};

const auto kClose = [](Form& form) { form.setModalResult(widgets::mrCancel); };

// --- properties -------------------------------------------------------------------------------------

TEST_F(ReportCompanionsTest, PropertiesAreKeptPerGridKey) {
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

TEST_F(ReportCompanionsTest, BrokenPropertiesGiveWayToDefaults) {
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

TEST_F(ReportCompanionsTest, PropertiesThatCannotBeWrittenAreRefused) {
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

// --- pages ------------------------------------------------------------------------------------------

TEST_F(ReportCompanionsTest, PagesRunFromTheRightWithTitlesOnEachOfThem) {
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

TEST_F(ReportCompanionsTest, AmountsAreTotalledAndCodesAreNot) {
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

TEST_F(ReportCompanionsTest, WideGridsGoOnToTheSide) {
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

TEST_F(ReportCompanionsTest, NumbersAreNeverCut) {
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
