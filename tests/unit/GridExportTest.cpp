// A grid's rows on the clipboard and in files for other programs.
#include <QDesktopServices>

#include "FullDisk.h"
#include "GridExport.h"
#include "GridFixture.h"

namespace {

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

class GridExports : public GridFixture {
protected:
    QByteArray content(const QString& file) {
        QFile written(path(file));
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray("missing");
    }
    QString exported(const QString& file) {
        const QByteArray bytes = content(file);
        return QString(reinterpret_cast<const QChar*>(bytes.data()), bytes.size() / 2);
    }

    Opener opener;
};

TEST_F(GridExports, CopyTheGridAsText) {
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

TEST_F(GridExports, ExportToOfficePrograms) {
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

TEST_F(GridExports, ExportManyRowsWhole) {
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

TEST_F(GridExports, ExportToTheBrowser) {
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

TEST_F(GridExports, LeaveNoHalfFile) {
    const auto refused = [&] { return refusal([&] { Export_Office(context(), grid, true, ".XLS"); }); };
    QDir().mkpath(path("EXCEL/Table2.XLS"));
    EXPECT_TRUE(refused().contains(data::pathInText(path("EXCEL/Table2.XLS"))));
    QDir(path("EXCEL")).removeRecursively();
    Export_Office(context(), grid, true, ".XLS");
    const QByteArray before = content("EXCEL/Table2.XLS");
    rows.setValue("name", "ديگر");
    rows.post();
    const QString said = [&] {
        const FullDisk full(16);
        return refused();
    }();
    EXPECT_FALSE(said.isEmpty());
    EXPECT_EQ(content("EXCEL/Table2.XLS"), before);
    EXPECT_EQ(QDir(path("EXCEL")).entryList(QDir::Files), QStringList("Table2.XLS"));
    EXPECT_EQ(opener.opened.size(), 1);
}

TEST_F(GridExports, TellWhereTheFileIsWhenNothingOpensIt) {
    QDesktopServices::unsetUrlHandler("file");
    for (const auto& [step, file] : {std::pair<std::function<void()>, const char*>(
                                         [&] { Export_Office(context(), grid, true, ".DOC"); }, "Table2.DOC"),
                                     {[&] { Export_Html(context(), grid, ""); }, "Table2.html"}})
        EXPECT_TRUE(said(step).contains(QLatin1String(file))) << file;
}

}  // namespace

#include "GridExportTest.moc"
