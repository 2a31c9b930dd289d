// Layouts, copy and paste, and column widths of a grid.
#include "GridColumns.h"
#include "GridExport.h"
#include "GridFixture.h"
#include "GridState.h"

namespace {

const GridStateKey kKey{"J", "BASE", "it's", "1"};

class GridServices : public GridFixture {
protected:
    void save(const GridStateKey& key = kKey) {
        EXPECT_EQ(said([&] { Save_Grid_State(db(), context(), grid, key); }), "وضعيت ستونها ثبت شد.");
    }
    void restore() { Restore_Grid_State(db(), context(), grid, kKey); }
    QList<int> order() {
        QList<int> order;
        for (const widgets::ColumnLayout& layout : grid.columnLayout())
            order.append(layout.column);
        return order;
    }
};

TEST_F(GridServices, LeaveWhatAnotherGridOfTheKeyHasStored) {
    save();
    grid.setGridColumns({columns()[0], {.field = "other", .title = "ديگر", .width = 71}});
    grid.setColumnWidth(0, 99);
    save();
    EXPECT_EQ(number("select count(*) from Grid_State"), 6);
    EXPECT_EQ(number("select sum(iLen) from Grid_State where sColName in ('CODE', 'name')"), 99 + 188);
    grid.setGridColumns(columns());
    restore();
    EXPECT_EQ(order(), QList<int>({0, 1, 2, 3, 4}));
    EXPECT_EQ(grid.columnWidth(0), 99);
}

TEST_F(GridServices, KeepWhatIsHidden) {
    save();
    run("update Grid_State set sVisible='F', iLen=77 where sColName='mark'");
    grid.selectColumn(4);
    restore();
    EXPECT_TRUE(grid.isColumnHidden(4));
    EXPECT_EQ(grid.selectedColumn(), 0) << "a hidden column cannot stay selected";
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
    EXPECT_EQ(statements.size(), 2) << "whatever the number of columns";
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
    // Some rows are not of the page at all, others are hidden from sight.
    rows.setFilter("code<4 or code=5");
    Fit_Grid_Columns(db(), grid, true, 0);
    EXPECT_EQ(grid.columnWidth(1), grid.fontMetrics().horizontalAdvance("<b>حق & مسكن") + 8);
    rows.setRestriction("code=3 or code=1");
    Fit_Grid_Columns(db(), grid, true, 0);
    EXPECT_EQ(grid.columnWidth(1), grid.fontMetrics().horizontalAdvance("حقوق پايه") + 8);
    // A server that refuses half-way leaves all widths.
    const int before = grid.columnWidth(0);
    rows.setRestriction("");
    rows.setFilter("");
    rows.setValue("code", 1000000);
    objects->connection().setMonitor([&](const QString& sql) {
        if (sql.contains("Top 1"))
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
    for (const auto& [number, grouped] : {std::pair("1234567", "1,234,567"),
                                          {"-1234567.5", "-1,234,567.5"},
                                          {"  ", "0"},
                                          {"-123", "-123"},
                                          {"123456", "123,456"},
                                          {"1234.5/6", "1,234.5/6"},
                                          {"0.5", "0.5"}})
        EXPECT_EQ(Format_Thousands(number), grouped) << number;
}

}  // namespace
