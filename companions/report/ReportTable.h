// The rows of a grid as a report needs them: read once, in one pass, and kept as compact texts, so that
// preview, print and file show the same rows and 100,000 of them fit.
#pragma once

#include <QList>
#include <QString>
#include <vector>

#include "DataGrid.h"

namespace report {

// A column of a report, as its grid shows it.
struct ReportColumn {
    QString title;
    QString field;
    widgets::ColumnKind kind = widgets::ColumnKind::Text;
    bool centred = false;
    QString displayFormat;
    bool totalled = false;
    bool shown = true;  // one that only groups is not

    bool isMark() const { return kind == widgets::ColumnKind::Mark; }
    bool isNumber() const { return kind == widgets::ColumnKind::Number || kind == widgets::ColumnKind::Code; }
};

// The visible columns from the right. Those that hold amounts are totalled, codes are not.
QList<ReportColumn> columnsOf(const widgets::DataGrid& grid);

// All rows of a grid as texts, read once; what is painted, counted and summed comes from it.
class ReportTable {
public:
    // A report without rows.
    explicit ReportTable(QList<ReportColumn> columns = {}) : m_columns(std::move(columns)) {}
    // Stores a row in edit, then reads all rows in the grid's order; the operator's row stays. Throws what
    // that throws, SilentAbort when he gives up. A grid without rows to read gives an empty table.
    static ReportTable read(widgets::DataGrid& grid, const QList<ReportColumn>& columns);

    const QList<ReportColumn>& columns() const { return m_columns; }
    int rowCount() const { return m_rows; }
    // As the grid shows it; of a mark "✓" or nothing.
    QString text(int row, int column) const;
    // 0 where the cell holds none.
    long double number(int row, int column) const;
    // A sum, grouped by thousands where the column's own format does not say otherwise.
    QString sumText(long double sum, int column) const;
    // Rows whose texts may be the widest of the column.
    std::vector<int> wideRows(int column) const;

private:
    QByteArrayView raw(int row, int column) const;
    void append(QByteArrayView text);

    QList<ReportColumn> m_columns;
    int m_rows = 0;
    QByteArray m_texts;             // all cells, row by row
    std::vector<quint32> m_begins;  // where each row begins there
};

}  // namespace report
