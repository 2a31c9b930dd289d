#include "GridColumns.h"

#include <QHeaderView>

#include "GridModel.h"
#include "Progress.h"
#include "Query.h"

QString Format_Thousands(const QString& number) {
    QString integer = number.trimmed();
    const bool negative = integer.startsWith(u'-');
    if (negative)
        integer = integer.mid(1).trimmed();
    if (integer.isEmpty() || integer == QLatin1String("0"))
        return QStringLiteral("0");
    qsizetype point = integer.indexOf(u'.');
    if (point < 0)
        point = integer.indexOf(u'/');
    const QString decimals = point < 0 ? QString() : integer.mid(point);
    integer.chop(decimals.size());
    for (qsizetype place = integer.size() - 3; place > 0; place -= 3)
        integer.insert(place, u',');
    return (negative ? QStringLiteral("-") : QString()) + integer + decimals;
}

namespace {

constexpr int kPadding = 8;  // pixels

// Where the rows come from, and which of them.
struct Source {
    QString from, where;
};

QString widestValue(const Source& source, const QString& field, int tolerance) {
    const QString length = "Len(LTrim(RTrim(" + field + ")))";
    return " Select Top 1 " + field + "  " + source.from + ' ' + source.where + " Group By " + field +
           " Having " + length + ">=    \t(Select Max(" + length + ")-" + QString::number(tolerance) +
           source.from + ' ' + source.where + " ) ";
}

// As a float: many amounts, or a few large ones, go beyond a whole number's range.
QString total(const Source& source, const QString& field) {
    return " Select Sum(Convert(float, " + field + ")) As X " + source.from + ' ' + source.where;
}

class Fitting {
public:
    Fitting(data::HostDatabase& db, const widgets::DataGrid& grid, bool skipTitles, int tolerance)
        : m_query(db.Connection),
          m_grid(grid),
          m_rows(*grid.dataset()),
          m_source{" From " + data::bracketed(m_rows.tableName()),
                   m_rows.restriction().isEmpty() ? QString() : "Where " + m_rows.restriction()},
          m_skipTitles(skipTitles),
          m_tolerance(tolerance) {}

    int width(const widgets::GridColumn& column) {
        const int field = m_rows.columnIndex(column.field);
        if (field < 0)
            return 0;
        const data::ColumnInfo& stored = m_rows.columns()[field];
        const QString name = data::bracketed(stored.name);
        int widest = widestOf(ask(widestValue(m_source, name, m_tolerance)), column, stored);
        if (isNumber(stored))
            widest = qMax(widest, textWidth(grouped(ask(total(m_source, name)))));
        // An empty column has nothing else to go by.
        if (!m_skipTitles || widest == 0)
            widest = qMax(widest,
                          m_grid.horizontalHeader()->fontMetrics().horizontalAdvance(column.title.trimmed()));
        return widest + kPadding;
    }

private:
    static bool isNumber(const data::ColumnInfo& stored) {
        return stored.type == data::ColumnType::Integer || stored.type == data::ColumnType::Real;
    }
    static QString grouped(const QString& number) {
        return number.isEmpty() ? number : Format_Thousands(number);
    }
    QString ask(const QString& sql) {
        m_query.setSql(sql);
        m_query.open();
        return m_query.text(0).trimmed();
    }
    int textWidth(const QString& text) const { return m_grid.fontMetrics().horizontalAdvance(text); }
    int widestOf(const QString& value, const widgets::GridColumn& column,
                 const data::ColumnInfo& stored) const {
        if (!isNumber(stored))
            return textWidth(value);
        const QString shown = column.displayFormat.isEmpty() || value.isEmpty()
                                  ? value
                                  : widgets::formatNumber(column.displayFormat, value.toDouble());
        return qMax(textWidth(grouped(value)), textWidth(shown));
    }

    data::Query m_query;
    const widgets::DataGrid& m_grid;
    const data::Dataset& m_rows;
    Source m_source;
    bool m_skipTitles;
    int m_tolerance;
};

}  // namespace

void Fit_Grid_Columns(data::HostDatabase& db, widgets::DataGrid& grid, bool skipTitles, int tolerance) {
    if (!grid.dataset() || !grid.dataset()->active())
        return;
    grid.dataset()->checkBrowseMode();
    const QList<int> columns = grid.visibleOrder();
    Fitting fitting(db, grid, skipTitles, tolerance);
    widgets::Progress progress(QStringLiteral("تنظيم عرض ستونها"), columns.size());
    // All or none: a server that fails half-way leaves the widths there were.
    QList<int> widths;
    for (const int column : columns) {
        progress.advance(widths.size());
        widths.append(fitting.width(grid.gridColumns()[column]));
    }
    for (qsizetype i = 0; i < columns.size(); ++i)
        grid.setColumnWidth(columns[i], widths[i]);
}
