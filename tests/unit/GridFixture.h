// A grid over a small table of an empty company, its columns of every kind.
#pragma once

#include <QHeaderView>
#include <QTimer>

#include "CompanyFixture.h"
#include "DataGrid.h"

class GridFixture : public CompanyFixture {
protected:
    void SetUp() override {
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
    void place(int from, int to) { grid.horizontalHeader()->moveSection(from, to); }
    void choose(int row, int column) {
        rows.moveTo(row);
        grid.selectColumn(column);
    }

    data::Dataset rows;
    widgets::DataGrid grid;
};
