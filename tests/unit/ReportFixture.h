// A demonstration company, a grid over its tables, and a page as the texts painted on it.
#pragma once

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

inline QString text(const char* utf8) {
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

class ReportFixture : public testing::Test {
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
