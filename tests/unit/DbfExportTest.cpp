// The dBase export, read back with shapelib, and the DOS Persian code page.
#include <gtest/gtest.h>
#include <shapefil.h>
#include <sys/stat.h>

#include <QDir>
#include <QTemporaryDir>

#include "DbfExport.h"
#include "Embedded.h"
#include "Errors.h"
#include "FullDisk.h"

namespace {

QString hex(const QString& text) {
    return QString::fromLatin1(Dos_Persian(text).toHex(' ').toUpper());
}

TEST(DosPersian, WritesKnownWords) {
    EXPECT_EQ(hex("علی"), "FC F3 E4");
    EXPECT_EQ(hex("حسن"), "F6 A8 9F");
    EXPECT_EQ(hex("محمدحسین"), "F6 FE A8 9F A2 F5 9F F5");
    EXPECT_EQ(hex("احمدی"), "FD A2 F5 9F 90");
    EXPECT_EQ(hex("علي"), hex("علی")) << "one letter, whatever keyboard it came from";
    EXPECT_EQ(hex("كمك"), hex("کمک"));
    EXPECT_EQ(hex("علی حسن"), "F6 A8 9F 20 FC F3 E4") << "a blank ends a word, and the last word comes first";
}

TEST(DosPersian, ChoosesTheFormBetweenTheNeighbours) {
    EXPECT_EQ(hex("سلام"), "F4 F2 A8") << "lam and alef are one character";
    EXPECT_EQ(hex("دلار"), "A4 F2 A2");
    EXPECT_EQ(hex("بلند"), "A2 F7 F3 93");
    EXPECT_EQ(hex("ع معع شعاع"), "E1 91 E3 AA 20 E2 E3 F5 20 E1");
    EXPECT_EQ(hex("هه ههه"), "F9 FA FB 20 F9 FB");
    EXPECT_EQ(hex("باد"), "A2 91 93");
    EXPECT_EQ(hex("آب"), "92 8D");
    EXPECT_EQ(hex("جزء"), "8F A5 9B");
    EXPECT_EQ(hex("مسئول"), "F1 F8 8E A8 F5");
    EXPECT_EQ(hex("رأس مؤمن"), hex("راس مومن"));
    EXPECT_EQ(hex("خانۀ مُدَرِّس"), hex("خانه مدرس")) << "marks on a letter do not part it from the next";
    EXPECT_EQ(hex("می\u200Cرود"), "A2 F8 A4 FC F5") << "a non-joiner does, and is not written";
}

TEST(DosPersian, KeepsNumbersAndLatinWordsInTheirOrder) {
    EXPECT_EQ(Dos_Persian("تا 1402/05/12"), "1402/05/12 \x91\x97");
    EXPECT_EQ(Dos_Persian("12-34 تا 12.5"), "12.5 \x91\x97 12-34");
    EXPECT_EQ(Dos_Persian("تا ۱۲ و ٣"), "\x83 \xF8 \x81\x82 \x91\x97");
    EXPECT_EQ(Dos_Persian("تا Word 2 (A) تا"), "\x91\x97 (Word 2 (A \x91\x97");
    EXPECT_EQ(Dos_Persian("تا (12)"), "(12) \x91\x97") << "brackets open towards their text";
    EXPECT_EQ(Dos_Persian("A-12 (b), x"), "A-12 (b), x") << "without Persian nothing is turned";
    EXPECT_EQ(Dos_Persian("۱۲/۳"), "\x81\x82/\x83");
    EXPECT_EQ(Dos_Persian("«é»€؟"), "\x8C\"e\"");
    EXPECT_EQ(Dos_Persian(QString()), QByteArray());
}

class DbfExport : public testing::Test {
protected:
    DbfExport() : connection(tsql::open(":memory:", tsql::OpenMode::Create)) {}

    void show(const QString& create) {
        connection->execute(create);
        rows.setConnection(connection.get());
        rows.setTableName("list");
        rows.open();
        grid.setDataset(&rows);
    }
    QString path(const char* name = "list.dbf") const { return folder.filePath(name); }
    QByteArray content(const QString& file) const {
        QFile read(file);
        EXPECT_TRUE(read.open(QIODevice::ReadOnly));
        return read.readAll();
    }
    // What the operator is told when the export is refused.
    QString refused(const QString& file) {
        try {
            Export_Dbf(grid, file, DbfText::Windows);
        } catch (const data::Refusal& refusal) {
            return refusal.text();
        }
        return {};
    }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files, QDir::Name); }

    std::unique_ptr<data::Connection> connection;
    data::Dataset rows;
    widgets::DataGrid grid;
    QTemporaryDir folder;
};

// A table as shapelib reads it.
class Table {
public:
    explicit Table(const QString& file) : m_table(DBFOpen(qPrintable(file), "rb")) {}
    ~Table() {
        if (m_table)
            DBFClose(m_table);
    }
    int rows() const { return m_table ? DBFGetRecordCount(m_table) : -1; }
    // "NAME C 50" for each field, with the decimals of a number.
    QStringList fields() const {
        QStringList fields;
        for (int field = 0; field < DBFGetFieldCount(m_table); ++field) {
            char name[12] = {};
            int width = 0, decimals = 0;
            DBFGetFieldInfo(m_table, field, name, &width, &decimals);
            QString entry =
                QStringLiteral("%1 %2 %3").arg(name).arg(DBFGetNativeFieldType(m_table, field)).arg(width);
            fields.append(decimals ? entry + u'.' + QString::number(decimals) : entry);
        }
        return fields;
    }
    QByteArray text(int row, int field) const { return DBFReadStringAttribute(m_table, row, field); }
    double number(int row, int field) const { return DBFReadDoubleAttribute(m_table, row, field); }
    bool isNull(int row, int field) const { return DBFIsAttributeNULL(m_table, row, field); }

private:
    DBFHandle m_table;
};

TEST_F(DbfExport, ReadsBackAsItWasStored) {
    show(
        "create table list(Code_field int, Desk varchar(50), Mark char(1), Share float, Big bigint, Remark "
        "text)"
        "insert into list values (2, 'حقوق \"پایه\"', char(214), 12.5, -9000000000000, 'متن آزاد') "
        "insert into list values (1, 'it''s', '', -0.125, 1, '') "
        "insert into list values (-2147483648, null, null, null, null, null)");
    Export_Dbf(grid, path(), DbfText::Windows);
    EXPECT_EQ(files(), QStringList({"list.dbf"}));
    const Table table(path());
    EXPECT_EQ(table.fields().join(", "),
              "CODE_FIELD N 11, DESK C 50, MARK C 1, SHARE N 11.3, BIG N 14, REMARK C 8");
    ASSERT_EQ(table.rows(), 3);
    EXPECT_EQ(table.text(0, 1), QByteArray("\xCD\xDE\xE6\xDE \"\x81\xC7\xED\xE5\""));
    EXPECT_EQ(table.text(0, 2), QByteArray("\xD6"));
    EXPECT_EQ(table.number(0, 3), 12.5);
    EXPECT_EQ(table.text(0, 4), "-9000000000000");
    EXPECT_EQ(table.text(1, 1), "it's");
    EXPECT_EQ(table.number(1, 3), -0.125);
    EXPECT_EQ(table.text(2, 0), "-2147483648");
    for (int field = 1; field < 6; ++field)
        EXPECT_TRUE(table.isNull(2, field)) << field;
    const QByteArray bytes = content(path());
    EXPECT_EQ(bytes[29], '\x7E');
    EXPECT_TRUE(bytes.endsWith('\x1A'));
    EXPECT_EQ(bytes.count('\x1A'), 1);
}

TEST_F(DbfExport, WritesTheOrderAndTheRowInEdit) {
    show(
        "create table list(Code int, Desk varchar(20)) insert into list values (1, 'يک') "
        "insert into list values (2, 'دو')");
    rows.setIndexFieldNames("Code DESC");
    rows.moveTo(1);
    rows.setValue("Desk", "سلام 12");
    Export_Dbf(grid, path(), DbfText::Dos);
    EXPECT_EQ(rows.state(), data::Dataset::State::Browse);
    const Table table(path());
    EXPECT_EQ(table.text(0, 1), Dos_Persian("دو"));
    EXPECT_EQ(table.text(1, 1), QByteArray("12 \xF4\xF2\xA8"));
    EXPECT_EQ(content(path())[29], '\0');
}

TEST_F(DbfExport, NamesFitAndDiffer) {
    show("create table list(Employee_Name_1 int, Employee_Name_2 int, EMPLOYEE_N int, [a b] int, [شرح] int)");
    Export_Dbf(grid, path(), DbfText::Windows);
    EXPECT_EQ(Table(path()).fields().join(", "),
              "EMPLOYEE_N N 11, EMPLOYEE_2 N 11, EMPLOYEE_3 N 11, A_B N 11, ___ N 11");
    EXPECT_EQ(Table(path()).rows(), 0);
}

TEST_F(DbfExport, RefusesWhatDoesNotFit) {
    show("create table list(Desk text, Amount float)");
    const auto one = [&](const QString& values) {
        connection->execute("delete from list insert into list values (" + values + ")");
        rows.refresh();
    };
    one("'" + QString(254, u'ی') + "', 1e17");
    EXPECT_EQ(refused(path()), QString());
    EXPECT_EQ(Table(path()).text(0, 0), QByteArray(254, '\xED'));
    const QByteArray before = content(path());
    one("'" + QString(255, u'ی') + "', 1");
    EXPECT_TRUE(refused(path()).contains("«Desk»"));
    one("'', 1e18");
    EXPECT_TRUE(refused(path()).contains("«Amount»"));
    EXPECT_EQ(content(path()), before);
    // No number is rounded: neither one with too many digits nor two that need more together.
    grid.setGridColumns({{.field = "amount", .title = " مبلغ "}});
    for (const char* numbers : {"'', 0.00000000000000012", "'', 1e16) insert into list values ('', 0.125"}) {
        one(QString::fromUtf8(numbers));
        EXPECT_TRUE(refused(path()).contains("«مبلغ»")) << numbers;
        EXPECT_EQ(content(path()), before);
    }
    one("'', 99999.99999999999");
    EXPECT_EQ(refused(path()), QString());
    EXPECT_EQ(Table(path()).number(0, 1), 99999.99999999999);
}

TEST_F(DbfExport, LeavesTheOldFileWhenTheDiskIsFull) {
    show("create table list(Code int, Desk varchar(200)) insert into list values (1, 'يک')");
    Export_Dbf(grid, path(), DbfText::Windows);
    const QByteArray before = content(path());
    for (int row = 0; row < 8; ++row)
        connection->execute("insert into list select Code, Desk from list");
    rows.refresh();
    ASSERT_EQ(rows.recordCount(), 256);
    // In the header, among the rows, and at the last bytes, which are still buffered at the end.
    for (const rlim_t bytes : {40, 30'000, 97 + 256 * 212}) {
        const FullDisk full(bytes);
        const QString message = refused(path());
        EXPECT_TRUE(message.contains(data::pathInText(path()))) << bytes << qPrintable(message);
        EXPECT_EQ(content(path()), before) << bytes;
        EXPECT_EQ(files(), QStringList({"list.dbf"})) << bytes;
    }
    EXPECT_EQ(refused(path()), QString());
    EXPECT_EQ(Table(path()).rows(), 256);
}

TEST_F(DbfExport, RefusesAPlaceThatCannotBeWritten) {
    show("create table list(Code int)");
    EXPECT_TRUE(refused(folder.path()).contains(folder.path())) << "a folder is no file";
    // A pipe stands for a device, which a test must not put at risk.
    const QByteArray pipe = path("pipe.dbf").toLocal8Bit();
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    EXPECT_TRUE(refused(path("pipe.dbf")).contains("pipe.dbf"));
    EXPECT_TRUE(QFileInfo::exists(path("pipe.dbf")) && !QFileInfo(path("pipe.dbf")).isFile());
}

}  // namespace
