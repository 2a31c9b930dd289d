// All rows of a grid as text, in one pass past the cursor.
#pragma once

#include <string>

#include "DataGrid.h"

class GridRows {
public:
    // Over the visible columns, from the last to the first when reversed. Stores a row in edit first.
    GridRows(const widgets::DataGrid& grid, bool reversed);

    const QStringList& titles() const { return m_titles; }
    // Reads the rows in their order. `row` may not use the connection; progress shows under `what`, and
    // giving it up throws SilentAbort.
    void read(const QString& what, const std::function<void(const data::RowView&)>& row) const;
    // A cell of such a row, by the place of its title; UTF-8, valid until the next row.
    QByteArrayView cell(const data::RowView& row, qsizetype place) const {
        return m_places[place] < 0 ? QByteArrayView() : row.text(m_places[place]);
    }

private:
    const data::Dataset& m_rows;
    QStringList m_titles;
    QList<int> m_places;  // of each column in what is read; -1 for one without a field
    QStringList m_fields;
};

// Appends a text with its tabs and line breaks as blanks: within a run of cells they would end one.
void appendOneLine(std::string& line, QByteArrayView text);
// The same, as a text of its own.
QString oneLine(QString text);
