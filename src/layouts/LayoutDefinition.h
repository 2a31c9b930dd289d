// The layouts of outgoing files, as values. A layout is a table of the company with one row a field of
// the file; the writers of the files read it. Three families of them are edited in one window each.
#pragma once

#include <QSize>
#include <optional>

#include "DataGrid.h"
#include "HostContext.h"

namespace layouts {

// How Space steps the value of a cell.
struct StepCycle {
    QList<std::pair<QString, QString>> steps;  // from, to
    std::optional<QString> otherwise = {};     // what any other value becomes; none leaves it alone
    QString onlyWhere = {};                    // a column, and the value it must hold for a step
    QString holds = {};
};

struct LayoutColumn {
    widgets::GridColumn grid;
    QString hint;
    int kept = 0;  // characters that Enter leaves in the cell; 0 for all
    StepCycle cycle = {};
};

// A row as it is seeded. Texts that the family's statement leaves out are never set.
struct SeedRow {
    QString F_DES, F_NAME;
    int F_LEN = 0, F_RAJ = 0;
    QString F_TYPE, F_FIX = {}, F_FIELD = {}, F_LR = {}, F_LRF = {}, F_LAT = {};
};

enum class DeleteRule {
    WithoutSource,  // rows that the operator added
    AfterRowTen     // whatever their source
};

// One family: its window, and its statements word for word. In those, %1 is the table.
struct LayoutDefinition {
    QString className;
    QString caption;
    QSize size;
    std::optional<int> top;  // pixels from the screen's edge; none centres the window
    QList<LayoutColumn> columns;
    QString create;
    QStringList upgrades;  // columns that older tables lack
    QString insert;        // %2: the values
    bool storesDecimals = true;
    int longestField = 0;  // highest F_LEN that is accepted; 0 for any
    DeleteRule deletes = DeleteRule::WithoutSource;
    bool searches = false;
    QString printTitle;  // empty: " مشخصات " and the window's caption
    QString reportKey;
};

// One table of a family.
struct LayoutFile {
    QString table;
    QString caption;  // empty: the family's
    QList<SeedRow> rows;
    QStringList lateSources;  // rows by their F_FIELD that older tables lack, in the order of adding
    QString fileName = {};    // that the operator has given the file
};

// Widths in pixels by grid column, in their order.
QList<LayoutColumn> layoutColumns(const QList<int>& widths);
// Limits what can be typed into the title and the name of a field.
void limitTitles(QList<LayoutColumn>& columns, int characters);

// Inserts rows as the family's statement has it, in their order; all or none.
void insertRows(data::HostDatabase& db, const LayoutDefinition& family, const QString& table,
                const QList<SeedRow>& rows);
// Makes the table where it is missing, adds the columns that older ones lack and seeds it where it is
// empty; a complete table is left alone. Refusal where a column is missing that cannot be added. Several
// tables of a family travel together.
void PrepareLayouts(data::HostDatabase& db, const LayoutDefinition& family, const QList<LayoutFile>& files);
// The rows that an older table lacks (LayoutFile::lateSources), in the order of adding.
QList<SeedRow> missingRows(data::HostDatabase& db, const LayoutFile& file);

}  // namespace layouts
