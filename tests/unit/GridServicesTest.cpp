// Layouts, copy and paste, exports and column widths of a grid.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QHeaderView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <csignal>

#include "Embedded.h"
#include "Errors.h"
#include "GridColumns.h"
#include "GridExport.h"
#include "GridState.h"
#include "HostCompany.h"
#include "HostObjects.h"
#include "ModuleVariables.h"

using State = data::Dataset::State;

namespace {

const GridStateKey kKey{"J", "BASE", "it's", "1"};

// Stands in for the programs that exports are opened with.
class Opener : public QObject {
    Q_OBJECT

public:
    QStringList opened;
    Opener() { QDesktopServices::setUrlHandler("file", this, "open"); }
    ~Opener() override { QDesktopServices::unsetUrlHandler("file"); }

public Q_SLOTS:
    void open(const QUrl& url) { opened.append(url.toLocalFile()); }
};

class GridServices : public testing::Test {
protected:
    void SetUp() override {
        const QString file = folder.filePath("a.company");
        host::createEmptyCompany(file);
        objects = std::make_unique<host::HostObjects>(tsql::open(file, tsql::OpenMode::Existing),
                                                      folder.filePath("suite"));
        _DlgMsg = objects->dlgMsg.get();
        context().Current_Date = "1404/07/15";
        run("create table items (id int identity, code int, name varchar(20), length float, mark "
            "varchar(1))");
        run("insert into items(code, name, length, mark) values (1, 'حقوق پايه', 9, 'ض'), "
            "(2, '<b>حق & مسكن', 1234567.5, ''), (3, 'بن', NULL, NULL)");
        rows.setObjectName("Table2");
        rows.setConnection(&objects->connection());
        rows.setTableName("items");
        rows.setIndexFieldNames("code");
        grid.setGridColumns(columns());
        grid.setDataset(&rows);
        rows.open();
    }
    void TearDown() override {
        grid.setDataset(nullptr);
        rows.close();
    }

    static QList<widgets::GridColumn> columns() {
        using widgets::ColumnKind;
        return {{.field = "code", .title = "كد", .width = 40, .kind = ColumnKind::Code, .readOnly = true},
                {.field = "name", .title = "نام حقوق", .width = 188, .kind = ColumnKind::Name},
                {.field = "id", .title = "پنهان", .width = 33, .visible = false},
                {.field = "length",
                 .title = "طول",
                 .width = 60,
                 .kind = ColumnKind::Number,
                 .displayFormat = "#,##0.00"},
                {.field = "mark", .title = "ماليات", .width = 60, .kind = ColumnKind::Mark}};
    }

    data::HostContext& context() { return objects->global; }
    data::HostDatabase& db() { return objects->database; }
    data::ResultSet run(const QString& sql) { return objects->connection().execute(sql); }
    qint64 number(const QString& sql) { return run(sql).rows.at(0).at(0).toLongLong(); }

    // What the message dialog says of a step.
    QString said(const std::function<void()>& step) {
        QString text;
        QTimer::singleShot(0, [&] {
            text = _DlgMsg->Memo1->toPlainText();
            _DlgMsg->close();
        });
        step();
        return text;
    }
    void save(const GridStateKey& key = kKey) {
        EXPECT_EQ(said([&] { Save_Grid_State(db(), context(), grid, key); }), "وضعيت ستونها ثبت شد.");
    }
    void restore() { Restore_Grid_State(db(), context(), grid, kKey); }
    void place(int from, int to) { grid.horizontalHeader()->moveSection(from, to); }
    QList<int> order() {
        QList<int> order;
        for (const widgets::ColumnLayout& layout : grid.columnLayout())
            order.append(layout.column);
        return order;
    }

    static QString refusal(const std::function<void()>& step) {
        try {
            step();
        } catch (const data::Refusal& refusal) {
            return refusal.text();
        }
        return {};
    }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
    static void setClipboard(const QString& text) { QGuiApplication::clipboard()->setText(text); }
    void choose(int row, int column) {
        rows.moveTo(row);
        grid.selectColumn(column);
    }

    QString path(const QString& file) { return folder.filePath("suite/" + file); }
    QByteArray content(const QString& file) {
        QFile written(path(file));
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray("missing");
    }
    QString exported(const QString& file) {
        const QByteArray bytes = content(file);
        return QString(reinterpret_cast<const QChar*>(bytes.data()), bytes.size() / 2);
    }

    QTemporaryDir folder;
    std::unique_ptr<host::HostObjects> objects;
    data::Dataset rows;
    widgets::DataGrid grid;
    Opener opener;
};

// --- layouts ----------------------------------------------------------------------------------------

TEST_F(GridServices, StoreOneRowAColumn) {
    place(1, 4);
    grid.setColumnWidth(1, 250);
    save();
    save();
    const data::ResultSet stored =
        run("select sColName, sVisible, iLen, iRaj, sForm from Grid_State order by iRaj");
    ASSERT_EQ(stored.rows.size(), 5);
    EXPECT_EQ(stored.rows[0], QVariantList({"code", "T", 40, 0, "it's"}));
    EXPECT_EQ(stored.rows[1], QVariantList({"id", "F", 33, 1, "it's"}));
    EXPECT_EQ(stored.rows[4], QVariantList({"name", "T", 250, 4, "it's"}));
}

TEST_F(GridServices, KeepLayoutsApart) {
    save();
    save({"J", "BASE", "other", "1"});
    context().UserId = 2;
    save();
    EXPECT_EQ(number("select count(*) from Grid_State"), 15);
    const QString words =
        "ستونها به وضعيت اوليه بازگشت. \nلطفا براي مشاهده ستونهاي اوليه\nاز فرم خارج شده و دوباره "
        "وارد شويد.";
    for (const int left : {10, 10}) {
        EXPECT_EQ(said([&] { Reset_Grid_State(db(), context(), grid, kKey); }), words);
        EXPECT_EQ(number("select count(*) from Grid_State"), left);
    }
    rows.close();
    context().UserId = 1;
    Save_Grid_State(db(), context(), grid, kKey);
    Reset_Grid_State(db(), context(), grid, kKey);
    EXPECT_EQ(number("select count(*) from Grid_State"), 10);
}

TEST_F(GridServices, KeepTheOldLayoutWhenTheServerRefuses) {
    save();
    grid.setColumnWidth(0, 99);
    int insertions = 0;
    objects->connection().setMonitor([&](const QString& sql) {
        if (sql.startsWith("Insert") && ++insertions == 3)
            throw data::ServerError("refused");
    });
    EXPECT_THROW(Save_Grid_State(db(), context(), grid, kKey), data::ServerError);
    objects->connection().setMonitor({});
    EXPECT_EQ(number("select count(*) from Grid_State"), 5);
    EXPECT_EQ(number("select iLen from Grid_State where sColName='code'"), 40);
}

TEST_F(GridServices, GiveTheLayoutBack) {
    place(0, 3);
    grid.setColumnWidth(3, 111);
    save();
    run("update Grid_State set sVisible='F' where sColName='mark'");
    const QList<int> stored = order();
    grid.setGridColumns(columns());
    grid.selectColumn(4);
    restore();
    EXPECT_EQ(order(), stored);
    EXPECT_EQ(grid.columnWidth(3), 111);
    EXPECT_TRUE(grid.isColumnHidden(4));
    EXPECT_TRUE(grid.isColumnHidden(2));
    EXPECT_EQ(grid.selectedColumn(), 1) << "a hidden column cannot stay selected";
    // What is hidden keeps its width through the next storing.
    run("update Grid_State set iLen=77 where sColName='mark'");
    restore();
    save();
    EXPECT_EQ(number("select iLen from Grid_State where sColName='mark'"), 77);
}

TEST_F(GridServices, BearLayoutsThatDoNotFit) {
    const auto store = [&](const QString& field, int width, int place) {
        run(QStringLiteral("Insert Into Grid_State Values(1,'T','J','BASE','it''s','1','%1',%2,%3)")
                .arg(field)
                .arg(width)
                .arg(place));
    };
    restore();
    EXPECT_EQ(order(), QList<int>({0, 1, 2, 3, 4})) << "nothing stored, nothing changed";
    store("mark", -5, -7);
    store("gone", 50, 0);
    store("CODE", 2000000000, 2000000000);
    store("length", 70, 3);
    store("length", 90, 4);
    restore();
    EXPECT_EQ(order(), QList<int>({4, 1, 2, 3, 0})) << "what the layout does not know keeps its place";
    EXPECT_EQ(grid.columnWidth(4), 60);
    EXPECT_EQ(grid.columnWidth(0), 40);
    EXPECT_EQ(grid.columnWidth(3), 70);
}

// --- rows and cells ---------------------------------------------------------------------------------

TEST_F(GridServices, CopyARowOntoAnother) {
    choose(1, 1);
    place(3, 0);
    const QString copied = Copy_Row(grid);
    EXPECT_EQ(copied, "length=1234567.5\tcode=2\tname=<b>حق & مسكن\tid=2\tmark=\t");
    rows.moveTo(0);
    Paste_Row(rows, grid, copied);
    EXPECT_EQ(rows.state(), State::Edit);
    rows.post();
    EXPECT_EQ(rows.value("length"), 1234567.5);
    EXPECT_EQ(rows.text("mark"), "");
    EXPECT_EQ(rows.text("id"), "1") << "an identity column stays as it is";
    EXPECT_EQ(number("select count(*) from items where name='<b>حق & مسكن'"), 2);
}

TEST_F(GridServices, RefuseRowTextsThatAreNone) {
    const struct {
        const char *text, *names;
    } cases[] = {
        {"", ""},
        {"code", ""},
        {"code=1\tname=x\tid=1\tlength=1\t", ""},
        {"code=1\tname=x\tid=1\tlength=1\tmark=\tmore=1\t", ""},
        {"code=1\tname=x\tid=1\tlength=1\tnobody=1\t", "nobody"},
        {"code=1\tname=x\tid=1\tlength=1\tCode=1\t", "Code"},
        {"code=1\tname=x\tid=1\tlength=much\tmark=\t", "طول"},
        {"code=1\tname=123456789012345678901\tid=1\tlength=1\tmark=\t", "نام حقوق"},
        {"code=1\tname=x\tid=1\tlength=1\tmark=x\t", "ماليات"},
        {"code=1\tname=日\tid=1\tlength=1\tmark=\t", "نام حقوق"},
    };
    for (const bool editing : {false, true}) {
        if (editing)
            rows.setValue("name", "نو");
        for (const auto& [text, names] : cases) {
            const QString said = refusal([&, text = text] { Paste_Row(rows, grid, text); });
            EXPECT_TRUE(!said.isEmpty() && said.contains(names)) << text << qUtf8Printable(said);
            EXPECT_EQ(rows.state(), editing ? State::Edit : State::Browse);
            EXPECT_EQ(rows.text("code"), "1");
            EXPECT_EQ(rows.text("name"), editing ? "نو" : "حقوق پايه");
        }
    }
    EXPECT_LT(refusal([&] { Paste_Row(rows, grid, QString(10'000'000, u'=')); }).size(), 200);
}

TEST_F(GridServices, CopyAndPasteACell) {
    choose(1, 1);
    Copy_Cell(grid);
    EXPECT_EQ(clipboard(), "<b>حق & مسكن");
    choose(0, 1);
    setClipboard("از صفحه\tگسترده\r\n");
    Paste_Cell(grid);
    EXPECT_EQ(rows.text("name"), "از صفحه گسترده");
    grid.selectColumn(3);
    setClipboard("1,234.5\n");
    Paste_Cell(grid);
    EXPECT_EQ(rows.value("length"), 1234.5);
    rows.cancel();

    choose(0, 1);
    grid.show();
    QTest::keyClick(&grid, Qt::Key_A);
    ASSERT_TRUE(grid.typingInCell());
    Copy_Cell(grid);
    EXPECT_EQ(clipboard(), "a") << "what is being typed";
    setClipboard("b");
    Paste_Cell(grid);
    rows.post();
    EXPECT_EQ(rows.text("name"), "b");
}

TEST_F(GridServices, PasteOnlyWhereOneTypes) {
    setClipboard("5");
    for (const int column : {0, 4}) {
        choose(0, column);
        EXPECT_FALSE(refusal([&] { Paste_Cell(grid); }).isEmpty());
        EXPECT_EQ(rows.state(), State::Browse);
    }
    grid.selectColumn(3);
    for (const QString& text : {QString("abc"), QString(10'000'000, u'7')}) {
        setClipboard(text);
        const QString said = refusal([&] { Paste_Cell(grid); });
        EXPECT_TRUE(!said.isEmpty() && said.size() < 200);
        EXPECT_EQ(rows.state(), State::Browse);
        EXPECT_EQ(rows.value("length"), 9.0);
    }
    setClipboard("5");
    rows.setRestriction("code>1");
    EXPECT_FALSE(refusal([&] { Paste_Cell(grid); }).isEmpty());
    EXPECT_EQ(rows.state(), State::Browse);
    rows.setRestriction("code>100");
    setClipboard("kept");
    Copy_Cell(grid);
    EXPECT_EQ(clipboard(), "kept");
}

// --- exports ----------------------------------------------------------------------------------------

TEST_F(GridServices, CopyTheGridAsText) {
    run("update items set name='a'+char(9)+'b'+char(13)+char(10)+'c' where code=2");
    rows.refresh();
    place(0, 1);
    choose(0, 1);
    rows.setValue("name", "تازه");
    Copy_Grid(grid, false);
    EXPECT_EQ(clipboard(),
              "\tنام حقوق\tكد\tطول\tماليات\t  \n"
              "\tتازه\t1\t9\tض\t  \n"
              "\ta b  c\t2\t1234567.5\t\t  \n"
              "\tبن\t3\t\t\t  \n");
    EXPECT_EQ(rows.recNo(), 3);
    EXPECT_EQ(rows.state(), State::Browse);
    Copy_Grid(grid, true);
    EXPECT_TRUE(clipboard().startsWith("\tماليات\tطول\tكد\tنام حقوق\t  \n\tض\t9\t1\tتازه\t  \n"));
    for (int column = 0; column < 5; ++column)
        grid.setColumnHidden(column, true);
    Copy_Grid(grid, true);
    EXPECT_EQ(clipboard(), QString("\t  \n").repeated(4));
}

TEST_F(GridServices, ExportToOfficePrograms) {
    choose(1, 3);
    rows.setValue("length", 5);
    Export_Office(context(), grid, true, ".xls");
    const QByteArray bytes = content("EXCEL/Table2.xls");
    EXPECT_TRUE(bytes.startsWith("\xFF\xFE\x09"));
    EXPECT_EQ(exported("EXCEL/Table2.xls"),
              "\uFEFF\tماليات\tطول\tنام حقوق\tكد\t  \r\n"
              "\tض\t9\tحقوق پايه\t1\t  \r\n"
              "\t\t5\t<b>حق & مسكن\t2\t  \r\n"
              "\t\t\tبن\t3\t  \r\n");
    EXPECT_EQ(rows.recNo(), 2);
    Export_Office(context(), grid, false, ".DOC");
    EXPECT_TRUE(exported("WORD/Table2.DOC").mid(1).startsWith("\tكد\t"));
    EXPECT_EQ(opener.opened, QStringList({path("EXCEL/Table2.xls"), path("WORD/Table2.DOC")}));
}

TEST_F(GridServices, ExportManyRowsWhole) {
    // Beyond the block that is converted at once, with letters of two bytes across its edge.
    run("truncate table items");
    QStringList values, lines;
    for (int row = 1; row <= 900; ++row)
        values.append(QStringLiteral("(%1,'حقوق%1')").arg(row));
    for (int code = 0; code < 5; ++code) {
        run("insert into items(code, name) values " + values.join(u','));
        rows.refresh();
    }
    rows.setIndexFieldNames("id");
    Export_Office(context(), grid, false, ".XLS");
    const QStringList written = exported("EXCEL/Table2.XLS").split("\r\n");
    ASSERT_EQ(written.size(), 4502);
    for (int row = 1; row <= 4500; ++row)
        ASSERT_EQ(written[row], QStringLiteral("\t%1\tحقوق%1\t\t\t  ").arg((row - 1) % 900 + 1));
}

TEST_F(GridServices, ExportToTheBrowser) {
    place(0, 1);
    Export_Html(context(), grid, "حقوق <1>");
    const QString page = QString::fromUtf8(content("html/Table2.html"));
    const auto cell = [](const QString& color, const QString& text) {
        return "<TD  ALIGN=RIGHT bgColor=" + color + " ><font Face=Tahoma   size=2 >" + text + "</font></TD>";
    };
    const QString odd = "LightYellow", even = "gray";
    EXPECT_EQ(page,
              "\uFEFF<HTML dir=rtl><HEAD><TITLE> حقوق &lt;1&gt;</TITLE></HEAD><BODY bgcolor=LightSteelBlue >"
              "<H3 Align=CENTER>حقوق &lt;1&gt;</H3><TT Align=Right > در تاريخ:15/07/1404</TT><TABLE BORDER=1>"
              "<TR><TH ALIGN=RIGHT bgColor=Gray>نام حقوق</TH><TH ALIGN=RIGHT bgColor=Gray>كد</TH>"
              "<TH ALIGN=RIGHT bgColor=Gray>طول</TH><TH ALIGN=RIGHT bgColor=Gray>ماليات</TH></TR>\n<TR>" +
                  cell(odd, "حقوق پايه") + cell(odd, "1") + cell(odd, "9") + cell(odd, "ض") + "</TR>\n<TR>" +
                  cell(even, "&lt;b&gt;حق &amp; مسكن") + cell(even, "2") + cell(even, "1234567.5") +
                  cell(even, "") + "</TR>\n<TR>" + cell(odd, "بن") + cell(odd, "3") + cell(odd, "") +
                  cell(odd, "") + "</TR>\n</TABLE></BODY></HTML>");
    EXPECT_EQ(opener.opened, QStringList(path("html/Table2.html")));
}

TEST_F(GridServices, LeaveNoHalfFile) {
    const auto refused = [&] { return refusal([&] { Export_Office(context(), grid, true, ".XLS"); }); };
    QDir().mkpath(path("EXCEL/Table2.XLS"));
    EXPECT_TRUE(refused().contains(data::pathInText(path("EXCEL/Table2.XLS"))));
    QDir(path("EXCEL")).removeRecursively();
    QFile file(path("EXCEL"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(refused().isEmpty()) << "a file where the folder should be";
    file.remove();

    Export_Office(context(), grid, true, ".XLS");
    const QByteArray before = content("EXCEL/Table2.XLS");
    rows.setValue("name", "ديگر");
    rows.post();
    // No room for more than a few bytes a file.
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit tight{16, limit.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &tight);
    const QString said = refused();
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(said.isEmpty());
    EXPECT_EQ(content("EXCEL/Table2.XLS"), before);
    EXPECT_EQ(QDir(path("EXCEL")).entryList(QDir::Files), QStringList("Table2.XLS"));
    EXPECT_EQ(opener.opened.size(), 1);
}

TEST_F(GridServices, ARefusedRowStaysInEdit) {
    rows.beforePost = [] { throw data::SilentAbort(); };
    rows.setValue("name", "ديگر");
    EXPECT_THROW(Export_Html(context(), grid, ""), data::SilentAbort);
    EXPECT_THROW(Copy_Grid(grid, true), data::SilentAbort);
    EXPECT_EQ(rows.state(), State::Edit);
    EXPECT_FALSE(QFile::exists(path("html")));
    rows.beforePost = nullptr;
}

// --- widths -----------------------------------------------------------------------------------------

TEST_F(GridServices, FitColumnsToWhatTheyShow) {
    QStringList statements;
    choose(1, 1);
    objects->connection().setMonitor([&](const QString& sql) { statements.append(sql); });
    Fit_Grid_Columns(db(), grid, true, 0);
    objects->connection().setMonitor({});
    const auto width = [&](const QString& text) { return grid.fontMetrics().horizontalAdvance(text) + 8; };
    EXPECT_EQ(grid.columnWidth(0), qMax(width("1"), width("6")));
    EXPECT_EQ(grid.columnWidth(1), width("<b>حق & مسكن"));
    EXPECT_EQ(grid.columnWidth(3), width("1,234,567.50")) << "as the cell shows it";
    EXPECT_EQ(statements.size(), 2 + 1 + 2 + 1) << "one or two a visible column";
    EXPECT_EQ(rows.recNo(), 2);
    EXPECT_EQ(grid.selectedColumn(), 1);
    Fit_Grid_Columns(db(), grid, false, 0);
    EXPECT_EQ(grid.columnWidth(4), width("ماليات"));

    run("update items set code=2147483647, name='' ");
    rows.refresh();
    Fit_Grid_Columns(db(), grid, true, 0);
    EXPECT_EQ(grid.columnWidth(0), width("6,442,450,941")) << "the total, beyond a whole number";
    EXPECT_EQ(grid.columnWidth(1), width("نام حقوق")) << "an empty column shows its title";
}

TEST_F(GridServices, FitColumnsToTheRowsInSight) {
    run("insert into items(code, name) values (4, 'نامي بسيار بلندتر')");
    rows.setRestriction("code=3 or code=1");
    Fit_Grid_Columns(db(), grid, true, 0);
    EXPECT_EQ(grid.columnWidth(1), grid.fontMetrics().horizontalAdvance("حقوق پايه") + 8);
    // A server that refuses half-way leaves all widths.
    const int before = grid.columnWidth(0);
    rows.setRestriction("");
    rows.setValue("code", 1000000);
    int sums = 0;
    objects->connection().setMonitor([&](const QString& sql) {
        if (sql.contains("Sum(") && ++sums == 2)
            throw data::ServerError("refused");
    });
    EXPECT_THROW(Fit_Grid_Columns(db(), grid, true, 0), data::ServerError);
    objects->connection().setMonitor({});
    EXPECT_EQ(grid.columnWidth(0), before);
    Fit_Grid_Columns(db(), grid, true, 0);
    EXPECT_GT(grid.columnWidth(0), before) << "a row in edit counts";
    EXPECT_EQ(rows.state(), State::Browse);
}

TEST(GridColumns, GroupThousands) {
    const std::pair<const char*, const char*> cases[] = {{"1234567", "1,234,567"},
                                                         {"-1234567.5", "-1,234,567.5"},
                                                         {"0", "0"},
                                                         {"", "0"},
                                                         {"  ", "0"},
                                                         {"123", "123"},
                                                         {"-123", "-123"},
                                                         {"123456", "123,456"},
                                                         {"1234/5678", "1,234/5678"},
                                                         {"1234.5/6", "1,234.5/6"},
                                                         {"0.5", "0.5"}};
    for (const auto& [number, grouped] : cases)
        EXPECT_EQ(Format_Thousands(number), grouped) << number;
}

}  // namespace

int main(int count, char** values) {
    QApplication application(count, values);
    testing::InitGoogleTest(&count, values);
    return RUN_ALL_TESTS();
}

#include "GridServicesTest.moc"
