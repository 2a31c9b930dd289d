#include "GridRows.h"

#include "Progress.h"

GridRows::GridRows(const widgets::DataGrid& grid, bool reversed) : m_rows(*grid.dataset()) {
    grid.dataset()->checkBrowseMode();
    QList<int> columns = grid.visibleOrder();
    if (reversed)
        std::reverse(columns.begin(), columns.end());
    for (const int column : columns) {
        const widgets::GridColumn& definition = grid.gridColumns()[column];
        m_titles.append(definition.title);
        const bool known = m_rows.columnIndex(definition.field) >= 0;
        m_places.append(known ? static_cast<int>(m_fields.size()) : -1);
        if (known)
            m_fields.append(definition.field);
    }
    // Rows without a visible column are rows still.
    if (m_fields.isEmpty() && !m_rows.columns().isEmpty())
        m_fields.append(m_rows.columns().first().name);
}

void GridRows::read(const QString& what, const std::function<void(const data::RowView&)>& row) const {
    widgets::Progress progress(what, m_rows.recordCount());
    qint64 done = 0;
    m_rows.connection()->stream(
        m_rows.selection(m_fields), [](const QList<data::ColumnInfo>&) {},
        [&](const data::RowView& view) {
            progress.advance(done++);
            row(view);
            return true;
        });
}

void appendOneLine(std::string& line, QByteArrayView text) {
    const size_t begin = line.size();
    line.append(text.data(), static_cast<size_t>(text.size()));
    for (size_t i = begin; i < line.size(); ++i)
        if (const char c = line[i]; c == '\t' || c == '\n' || c == '\r')
            line[i] = ' ';
}

QString oneLine(QString text) {
    for (const char16_t breaking : {u'\t', u'\n', u'\r'})
        text.replace(breaking, u' ');
    return text;
}
