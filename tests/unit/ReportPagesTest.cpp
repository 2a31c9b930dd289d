// Reports on paper: their properties, their pages as the texts painted on them, and their files.
#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QPaintEngine>
#include <QPainter>
#include <QProgressDialog>
#include <QTimer>

#include "CompanyFixture.h"
#include "DataGrid.h"
#include "ReportOutput.h"

using report::GridReport;
using report::ReportProperties;
using widgets::ColumnKind;

namespace {

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
        if (metric == PdmWidth || metric == PdmHeight)
            return 2000;
        if (metric == PdmDevicePixelRatio)
            return 1;
        return metric == PdmDevicePixelRatioScaled ? int(devicePixelRatioFScale()) : 72;
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

class Reports : public CompanyFixture {
protected:
    ~Reports() override { grid.setDataset(nullptr); }

    void show(const QString& table, const QString& order, const QList<widgets::GridColumn>& columns) {
        rows.setConnection(&objects->connection());
        rows.setTableName(table);
        rows.setIndexFieldNames(order);
        grid.setGridColumns(columns);
        grid.setDataset(&rows);
        rows.open();
        grid.resize(700, 300);
        grid.show();
    }
    GridReport reportOf(const ReportProperties& properties = {}, const report::Grouping& grouping = {}) {
        return {report::ReportTable::read(grid, report::columnsOf(grid)),
                properties,
                {{"كاركنان", " ", "سه ماهه دوم"}, "1404/07/15", {}},
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

    data::Dataset rows;
    widgets::DataGrid grid;
};

TEST_F(Reports, PropertiesAreKeptPerGridKey) {
    ReportProperties changed;
    changed.title = "فهرست، «حقوق»؛ 1404";
    changed.paper = "A5";
    changed.landscape = true;
    changed.margins = QMarginsF(7.5, 20, 10, 30);
    changed.titleSize = 18;
    changed.totals = false;
    report::storeProperties(folder.path(), "J_BASE_MOZD_1", changed);
    EXPECT_EQ(report::readProperties(folder.path(), "J_BASE_TAX_1"), ReportProperties());
    report::storeProperties(folder.path(), "J_BASE_TAX_1", {});
    EXPECT_EQ(report::readProperties(folder.path(), "J_BASE_MOZD_1"), changed);

    EXPECT_THROW(report::storeProperties(folder.path(), "", changed), data::Refusal);
    QFile inTheWay(path("Data"));
    QDir().mkpath(path(""));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    EXPECT_THROW(report::storeProperties(path(""), "K", {}), data::Refusal)
        << "a file where the folder should be";
}

TEST_F(Reports, BrokenPropertiesGiveWayToDefaults) {
    QDir(folder.path()).mkpath("Data");
    QFile file(folder.filePath("Data/Reports.ini"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "[K]\nTitle=T\nPaper=Papyrus\nLandscape=perhaps\nLeftMargin=90\nRightMargin=95\nTopMargin=-1\n"
        "BottomMargin=many\nTitleSize=4000\nBodySize=11\nTotals=false\n");
    file.close();
    ReportProperties expected;
    expected.title = "T";
    expected.margins.setLeft(90);  // the right margin would leave no room
    expected.bodySize = 11;
    expected.totals = false;
    EXPECT_EQ(report::readProperties(folder.path(), "K"), expected);
}

TEST_F(Reports, GivingUpLeavesNoFile) {
    run("create table long_list (code int, name varchar(50)) insert into long_list values (1, 'كاركنان')");
    for (int doubled = 0; doubled < 17; ++doubled)
        run("insert into long_list select code, name from long_list");
    show("long_list", "code", {{.field = "code", .title = "كد"}, {.field = "name", .title = "نام"}});
    const GridReport report = reportOf();
    QTimer operators;
    QObject::connect(&operators, &QTimer::timeout, [] {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<QProgressDialog*>(widget))
                dialog->cancel();
    });
    operators.start(0);
    EXPECT_THROW(report::writePdf(report, path("PDF/list.pdf")), data::SilentAbort);
    EXPECT_TRUE(QDir(path("PDF")).isEmpty(QDir::Files | QDir::Hidden));
}

TEST_F(Reports, PagesRunFromTheRightWithTitlesOnEachOfThem) {
    QStringList people, stored, codes;
    for (int code = 10000200; code > 10000000; --code) {
        people.append(QStringLiteral("('%1', 'كرمي', %2)").arg(code).arg(code % 7));
        stored.prepend(QString::number(code));
    }
    run("create table people (code varchar(8), family varchar(25), grade int) insert into people values " +
        people.join(u','));
    show("people", "code",
         {{.field = "code", .title = "كد", .width = 60, .kind = ColumnKind::Code},
          {.field = "family", .title = "نام خانوادگي", .width = 120, .kind = ColumnKind::Name},
          {.field = "grade", .title = "گروه", .width = 60, .kind = ColumnKind::Number}});
    const GridReport report = reportOf();
    ASSERT_GT(report.pageCount(), 3);
    for (int page = 0; page < report.pageCount(); ++page) {
        const Painted sheet = painted(report, page);
        EXPECT_GT(sheet.placeOf("كد").x(), sheet.placeOf("نام خانوادگي").x());
        EXPECT_GT(sheet.placeOf("نام خانوادگي").x(), sheet.placeOf("گروه").x());
        for (const char* head : {"كاركنان", "سه ماهه دوم", "1404/07/15"})
            EXPECT_TRUE(sheet.joined().contains(head)) << head;
        for (const QString& foot :
             {QString("از"), QString::number(page + 1), QString::number(report.pageCount())})
            EXPECT_TRUE(sheet.words().contains(foot)) << qPrintable(foot);
        for (const Painted::Text& each : sheet.texts) {
            if (each.text.size() == 8 && each.text.toInt() > 0)
                codes.append(each.text);
            EXPECT_GT(each.place.x(), 12 / 25.4 * 72 - 1) << each.text.toStdString();
            EXPECT_LT(each.place.y(), (297 - 12) / 25.4 * 72 + 1) << each.text.toStdString();
        }
    }
    EXPECT_EQ(codes, stored) << "each row once, in the grid's order";
}

TEST_F(Reports, AmountsAreTotalledAndCodesAreNot) {
    run("create table amounts(code int, name varchar(50), amount float, rate int)"
        "insert into amounts values(1, 'a', 1500000.25, 3), (2, 'b', -500000, NULL), (3, 'a', 2000000, 4)");
    show("amounts", "code DESC",
         {{.field = "code", .title = "كد", .kind = ColumnKind::Code},
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

TEST_F(Reports, WideGridsGoOnToTheSide) {
    QStringList fields;
    QList<widgets::GridColumn> columns{{.field = "code", .title = "كد", .kind = ColumnKind::Code}};
    for (int i = 1; i <= 20; ++i) {
        fields.append(QString("c%1 varchar(60)").arg(i));
        columns.append({.field = QString("c%1").arg(i), .title = QString("T%1").arg(i)});
    }
    run("create table wide(code int, " + fields.join(',') + ")");
    run("insert into wide(code, c1, c20) values(77, '" + QString(60, 'w') + "', 'last')");
    for (int i = 2; i < 20; ++i)
        run(QString("update wide set c%1='some thirty letters of a text'").arg(i));
    show("wide", {}, columns);
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
            expected.append(QString("T%1").arg(i));
    EXPECT_EQ(titles, expected) << "visible columns once each, as the operator has ordered them";
}

TEST_F(Reports, NumbersAreNeverCut) {
    run("create table long(code int, name varchar(30), amount float)"
        "insert into long values(1, 'some family name', 12345), (999999, 'z', 123456789012)");
    for (int doubled = 0; doubled < 8; ++doubled)
        run("insert into long select code+1, name, 12345 from long where code<999");
    show("long", "code DESC",
         {{.field = "code", .title = "كد", .kind = ColumnKind::Code},
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
