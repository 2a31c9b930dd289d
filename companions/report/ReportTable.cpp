#include "ReportTable.h"

#include <algorithm>
#include <charconv>
#include <numeric>

#include "CodePage.h"
#include "Dataset.h"
#include "Errors.h"
#include "GridModel.h"
#include "Progress.h"
#include "Query.h"

namespace report {
namespace {

constexpr int kMeasured = 300;  // texts of a column that are measured

bool holdsNumbers(const data::Dataset* dataset, const QString& field) {
    const int index = dataset ? dataset->columnIndex(field) : -1;
    if (index < 0)
        return false;
    const data::ColumnType type = dataset->columns()[index].type;
    return type == data::ColumnType::Integer || type == data::ColumnType::Real;
}

}  // namespace

QList<ReportColumn> columnsOf(const widgets::DataGrid& grid) {
    QList<ReportColumn> columns;
    for (const int index : grid.visibleOrder()) {
        if (index >= grid.gridColumns().size())
            continue;
        const widgets::GridColumn& column = grid.gridColumns()[index];
        const bool totalled =
            column.kind == widgets::ColumnKind::Number && holdsNumbers(grid.dataset(), column.field);
        columns.append({column.title.trimmed(), column.field, column.kind, column.centred,
                        column.displayFormat, totalled});
    }
    return columns;
}

ReportTable ReportTable::read(widgets::DataGrid& grid, const QList<ReportColumn>& columns) {
    ReportTable table(columns);
    data::Dataset* dataset = grid.dataset();
    if (!dataset || !dataset->active() || !dataset->connection())
        return table;
    dataset->checkBrowseMode();
    QStringList fields;
    std::vector<int> places;  // of each column in the statement
    for (const ReportColumn& column : columns) {
        const bool there = dataset->columnIndex(column.field) >= 0;
        places.push_back(there ? int(fields.size()) : -1);
        if (there)
            fields.append(column.field);
    }
    if (fields.isEmpty())
        return table;
    widgets::Progress progress(QStringLiteral("خواندن رديف ها ..."), dataset->recordCount());
    table.m_ends.reserve(size_t(dataset->recordCount()) * places.size());
    dataset->connection()->stream(
        dataset->selection(fields), [](const QList<data::ColumnInfo>&) {},
        [&](const data::RowView& row) {
            for (const int place : places)
                table.append(place < 0 || row.isNull(place) ? QByteArrayView() : row.text(place));
            progress.advance(++table.m_rows);
            return true;
        });
    return table;
}

void ReportTable::append(QByteArrayView text) {
    m_texts.append(text);
    m_ends.push_back(quint32(m_texts.size()));
}

QByteArrayView ReportTable::raw(int row, int column) const {
    const size_t cell = size_t(row) * size_t(m_columns.size()) + size_t(column);
    const quint32 begin = cell == 0 ? 0 : m_ends[cell - 1];
    return QByteArrayView(m_texts).sliced(begin, m_ends[cell] - begin);
}

QString ReportTable::text(int row, int column) const {
    QString text = QString::fromUtf8(raw(row, column)).trimmed();
    const ReportColumn& definition = m_columns[column];
    if (definition.isMark())
        return text == data::kMark ? QStringLiteral("✓") : text;
    if (definition.displayFormat.isEmpty() || text.isEmpty())
        return text;
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? widgets::formatNumber(definition.displayFormat, number) : text;
}

long double ReportTable::number(int row, int column) const {
    const QByteArrayView text = raw(row, column);
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

QString ReportTable::sumText(long double sum, int column) const {
    const QString& own = m_columns[column].displayFormat;
    return widgets::formatNumber(own.isEmpty() ? QStringLiteral("#,##0.##") : own, double(sum));
}

std::vector<int> ReportTable::wideRows(int column) const {
    std::vector<int> rows(static_cast<size_t>(m_rows));
    std::iota(rows.begin(), rows.end(), 0);
    const auto longer = [&](int one, int other) {
        return raw(one, column).size() > raw(other, column).size();
    };
    const auto measured = rows.begin() + std::min<qsizetype>(m_rows, kMeasured);
    std::partial_sort(rows.begin(), measured, rows.end(), longer);
    // A number may be shown with fewer digits than it has.
    if (m_rows > kMeasured && m_columns[column].isNumber()) {
        const auto less = [&](int one, int other) { return number(one, column) < number(other, column); };
        const auto [least, most] = std::minmax_element(measured, rows.end(), less);
        std::iter_swap(rows.begin(), least);
        std::iter_swap(rows.begin() + 1, most);
    }
    rows.erase(measured, rows.end());
    return rows;
}

}  // namespace report
