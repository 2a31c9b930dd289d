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
        const bool totalled = column.totalled && column.kind == widgets::ColumnKind::Number &&
                              holdsNumbers(grid.dataset(), column.field);
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
    table.m_begins.reserve(size_t(dataset->recordCount()));
    dataset->connection()->stream(
        dataset->selection(fields), [](const QList<data::ColumnInfo>&) {},
        [&](const data::RowView& row) {
            table.m_begins.push_back(quint32(table.m_texts.size()));
            for (const int place : places)
                table.append(place < 0 || row.isNull(place) ? QByteArrayView() : row.text(place));
            progress.advance(++table.m_rows);
            return true;
        });
    return table;
}

// Its length stands before it, seven bits a byte, the lowest first; all but the last byte have the eighth
// set.
void ReportTable::append(QByteArrayView text) {
    qsizetype length = text.size();
    for (; length >= 0x80; length >>= 7)
        m_texts.append(char(0x80 | (length & 0x7F)));
    m_texts.append(char(length));
    m_texts.append(text);
}

QByteArrayView ReportTable::raw(int row, int column) const {
    const char* at = m_texts.constData() + m_begins[size_t(row)];
    for (;; --column) {
        qsizetype length = 0;
        for (int shift = 0;; shift += 7) {
            const auto byte = uchar(*at++);
            length |= qsizetype(byte & 0x7F) << shift;
            if (byte < 0x80)
                break;
        }
        if (column == 0)
            return {at, length};
        at += length;
    }
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
