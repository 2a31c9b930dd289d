#include "GridColumns.h"

#include <QHeaderView>

#include "GridModel.h"
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

// A visible column over a field of the rows, and what is to be measured of it.
struct Fitted {
    const widgets::GridColumn* column;
    const data::ColumnInfo* stored;
    QStringList values;  // of the widest
    QString total = {};

    bool isNumber() const { return stored->type == data::ColumnType::Real || isWhole(); }
    bool isWhole() const { return stored->type == data::ColumnType::Integer; }
    QString name() const { return data::bracketed(stored->name); }
    // As a float: many amounts, or a few large ones, go beyond a whole number's range.
    QString number() const { return name() + "*1E0"; }
    QString length() const { return "Len(LTrim(" + name() + "))"; }
    QStringList texts() const;
};

QString grouped(const QString& number) {
    return number.isEmpty() ? number : Format_Thousands(number);
}

// All that may be seen of them.
QStringList Fitted::texts() const {
    if (!isNumber())
        return values;
    QStringList texts = {grouped(total)};
    for (const QString& value : values) {
        texts.append(grouped(value));
        if (!column->displayFormat.isEmpty() && !value.isEmpty())
            texts.append(widgets::formatNumber(column->displayFormat, value.toDouble()));
    }
    return texts;
}

// Asks for all columns at once: the longest of whole numbers is the greatest or the least, the length of any
// other value leads to one that has it.
class Extremes {
public:
    Extremes(const data::HostDatabase& db, const data::Dataset& rows, int tolerance)
        : m_query(db.Connection),
          m_from(" From " + data::bracketed(rows.tableName())),
          m_where(rows.condition().isEmpty() ? QString() : " Where (" + rows.condition() + u')'),
          m_tolerance(tolerance) {}

    void find(QList<Fitted>& columns) {
        QStringList asked;
        for (const Fitted& column : columns) {
            asked.append(column.isWhole() ? "Max(" + column.number() + "), Min(" + column.number() + u')'
                                          : "Max(" + column.length() + u')');
            if (column.isNumber())
                asked.append("Sum(" + column.number() + u')');
        }
        open(asked, m_from + m_where);
        int place = 0;
        QStringList longest;
        QList<Fitted*> sought;
        for (Fitted& column : columns) {
            const QString first = m_query.text(place++).trimmed();
            if (column.isWhole()) {
                column.values = {first, m_query.text(place++).trimmed()};
            } else if (first.toInt() > 0) {
                longest.append("(Select Top 1 " + column.name() + m_from +
                               (m_where.isEmpty() ? QStringLiteral(" Where ") : m_where + " And ") +
                               column.length() + ">=" + QString::number(first.toInt() - m_tolerance) + u')');
                sought.append(&column);
            }
            if (column.isNumber())
                column.total = m_query.text(place++).trimmed();
        }
        open(longest, {});
        for (int i = 0; i < sought.size(); ++i)
            sought[i]->values = {m_query.text(i).trimmed()};
    }

private:
    void open(const QStringList& asked, const QString& source) {
        if (asked.isEmpty())
            return;
        m_query.setSql("Select " + asked.join(QStringLiteral(", ")) + source);
        m_query.open();
    }

    data::Query m_query;
    QString m_from, m_where;
    int m_tolerance;
};

}  // namespace

void Fit_Grid_Columns(data::HostDatabase& db, widgets::DataGrid& grid, bool skipTitles, int tolerance) {
    if (!grid.dataset() || !grid.dataset()->active())
        return;
    grid.dataset()->checkBrowseMode();
    const data::Dataset& rows = *grid.dataset();
    QList<int> order, bare;
    QList<Fitted> columns;
    for (const int column : grid.visibleOrder()) {
        const widgets::GridColumn& shown = grid.gridColumns()[column];
        const int field = rows.columnIndex(shown.field);
        if (field < 0) {
            bare.append(column);
            continue;
        }
        order.append(column);
        columns.append({&shown, &rows.columns()[field]});
    }
    // All or none: a server that fails leaves the widths there were.
    Extremes(db, rows, tolerance).find(columns);
    for (qsizetype i = 0; i < order.size(); ++i) {
        int width = 0;
        for (const QString& text : columns[i].texts())
            width = qMax(width, grid.fontMetrics().horizontalAdvance(text));
        // An empty column has nothing else to go by.
        if (!skipTitles || width == 0)
            width = qMax(width, grid.horizontalHeader()->fontMetrics().horizontalAdvance(
                                    columns[i].column->title.trimmed()));
        grid.setColumnWidth(order[i], width + kPadding);
    }
    for (const int column : bare)
        grid.setColumnWidth(column, 0);
}
