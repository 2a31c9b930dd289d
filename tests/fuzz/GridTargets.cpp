// What a grid takes from outside: stored layouts, the clipboard; what leaves it as a file; file layouts.
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>

#include "CodePage.h"
#include "DbfExport.h"
#include "Errors.h"
#include "FuzzTargets.h"
#include "GridBlock.h"
#include "GridExport.h"
#include "GridState.h"
#include "Query.h"
#include "RecordLayout.h"
#include "SmallCompany.h"

namespace fuzz {

void gridLayout(const QByteArray& input) {
    SmallCompany& company = SmallCompany::instance();
    Choices choices(input);
    QStringList rows;
    for (int row = choices.below(12); row > 0; --row)
        rows.append("(1, '" + choices.oneOf({"T", "F", "?", " "}) + "', 'J', 'BASE', 'items', '1', '" +
                    choices.oneOf({"code", "NAME", "length", "mark", "day", "id", "gone", " code", ""}) +
                    "', " +
                    choices.oneOf({"0", "-1", "40", "10000", "10001", "2147483647", "-2147483648", "null"}) +
                    ", " + choices.oneOf({"0", "1", "2", "2", "-5", "2147483647", "null"}) + ")");
    const GridStateKey key = {"J", "BASE", "items", "1"};
    company.withGrid([&](widgets::DataGrid& grid) {
        company.run(QStringLiteral("delete from Grid_State"));
        if (!rows.isEmpty())
            company.run(
                "insert into Grid_State(UserId, sVisible, sProg, sItem, sForm, sPart, sColName, iLen, iRaj) "
                "values " +
                rows.join(u','));
        Restore_Grid_State(company.database(), company.context(), grid, key);
        QSet<int> columns;
        for (const widgets::ColumnLayout& layout : grid.columnLayout()) {
            columns.insert(layout.column);
            require(layout.width > 0 && layout.width <= 10'000, "a width that can be drawn");
        }
        require(columns.size() == grid.gridColumns().size(), "each column once");
        // What is stored is what comes back.
        const auto before = grid.columnLayout();
        answered([&] { Save_Grid_State(company.database(), company.context(), grid, key); });
        Restore_Grid_State(company.database(), company.context(), grid, key);
        const auto after = grid.columnLayout();
        for (qsizetype i = 0; i < before.size(); ++i)
            require(before[i].column == after[i].column && before[i].visible == after[i].visible,
                    "as it was stored");
    });
}

void block(const QByteArray& input) {
    const QString text = QString::fromUtf8(input);
    for (const QStringList& line : Parse_Block(text))
        require(!line.isEmpty(), "a line has a cell");
    Is_Block(text);
    SmallCompany& company = SmallCompany::instance();
    company.withGrid([&](widgets::DataGrid& grid) {
        data::Dataset& rows = *grid.dataset();
        answered([&] { Paste_Row(rows, grid, text); });
        rows.cancel();
        grid.selectColumn(1);
        QGuiApplication::clipboard()->setText(text);
        answered([&] { Paste_Cell(grid); });
        answered([&] { rows.checkBrowseMode(); });
        rows.cancel();
        require(rows.recordCount() == 3, "a text of the clipboard makes and deletes no row");
        // A copied cell is read as it is stored.
        Copy_Block(grid, {0, 2, {1}});
        const QList<QStringList> copied = Parse_Block(QGuiApplication::clipboard()->text());
        for (int row = 0; row < 3; ++row)
            require(copied.value(row).value(0) ==
                        data::valueText(rows.valueAt(row, rows.columnIndex(QStringLiteral("name")))),
                    "copied and read");
    });
}

void record(const QByteArray& input) {
    Choices choices(input);
    QList<layouts::LayoutRow> rows;
    for (int row = choices.below(8); row > 0; --row) {
        layouts::LayoutRow one;
        one.name = choices.oneOf({"", "A", "code", "9x", "ABCDEFGHIJK", "نام", "a"});
        one.length = choices.oneOf({"0", "1", "5", "-3", "254", "4001", "2147483647", "-2147483648"}).toInt();
        one.order = choices.oneOf({"0", "1", "2", "-1", "2147483647"}).toInt();
        one.type = choices.oneOf({"C", "N", "F", "", "?"});
        one.alignment = choices.oneOf({"", "L", "R", "?"});
        one.padding = choices.oneOf({"", "0", " ", "xy"});
        one.decimals = choices.oneOf({"0", "2", "-1", "18", "2147483647"}).toInt();
        one.fixed = choices.oneOf({"", "0", "ثابت", "a long fixed text"});
        one.source = choices.oneOf({"", "CODE", "gone"});
        rows.append(one);
    }
    const layouts::RecordLayout record = layouts::recordOf(rows, {{"code", choices.rest()}});
    qint64 end = 1;
    for (const layouts::RecordField& field : record.fields) {
        require(field.from == end && field.length > 0, "fields follow each other");
        require(field.value.size() <= field.length, "no longer than its room");
        end = field.from + field.length;
    }
    require(record.length == end - 1 && record.text().size() <= record.length, "the record is its fields");
}

void dbf(const QByteArray& input) {
    const QString text = QString::fromUtf8(input);
    require(!Dos_Persian(text).contains('?') || text.contains(u'?'),
            "no question mark in a character's place");
    SmallCompany& company = SmallCompany::instance();
    static int runs = 0;
    if (runs++ % 8 != 0)
        return;  // a file costs a thousand times as much
    company.withGrid([&](widgets::DataGrid& grid) {
        Choices choices(input);
        answered([&] {
            company.run(
                "update items set length=" +
                choices.oneOf({"null", "0", "-1", "1e15", "1e300", "0.1", "1e-300", "12345678901234567"}) +
                ", name=" + data::quoted(choices.rest().left(20)));
            grid.dataset()->refresh();
            const QString file = company.path(QStringLiteral("items.dbf"));
            Export_Dbf(grid, file, input.size() % 2 == 0 ? DbfText::Dos : DbfText::Windows);
            QFile written(file);
            require(written.open(QIODevice::ReadOnly) && written.size() > 32 &&
                        written.readAll().endsWith('\x1A'),
                    "a whole file");
        });
    });
}

}  // namespace fuzz
