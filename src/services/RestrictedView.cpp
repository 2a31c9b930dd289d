#include "RestrictedView.h"

#include <QPointer>
#include <QRegularExpression>

#include "CompanionBridge.h"
#include "Dataset.h"
#include "Errors.h"

namespace {

const QString kFloatFormat = QStringLiteral("###,###,###,###,###.###");

struct Selection {
    QString table, condition, order;
};

// Takes "Select * From table [Where condition] [Order By columns]" apart.
Selection takenApart(const QString& statement) {
    static const QRegularExpression shape(
        QStringLiteral(R"(^\s*select\s+\*\s+from\s+(\[[^\]]+\]|\S+)(?:\s+where\s+(.*?))?)"
                       R"((?:\s+order\s+by\s+([^()']*))?\s*$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = shape.match(statement);
    if (!match.hasMatch())
        throw data::Refusal(QStringLiteral("دستور پالايش شناخته نشد و گزارش بدون تغيير ماند."));
    QString table = match.captured(1);
    if (table.startsWith(u'['))
        table = table.mid(1, table.size() - 2);
    return {table, match.captured(2).trimmed(),
            match.captured(3).trimmed().replace(u',', u';').remove(u'[').remove(u']')};
}

}  // namespace

struct RestrictedViews::View {
    QPointer<data::Dataset> own;
    data::Dataset rows;
    QStringList formats;  // of the grid's columns, as they were
};

RestrictedViews::RestrictedViews() = default;
RestrictedViews::~RestrictedViews() = default;

void RestrictedViews::Filter_Menu_Click(widgets::DataGrid& grid, const QString& baseText) {
    if (restricted(grid)) {
        restore(grid);
        return;
    }
    data::Dataset& own = *grid.dataset();
    own.checkBrowseMode();
    const QString statement = Show_Filter(grid, baseText).trimmed();
    if (statement.isEmpty())
        return;
    const Selection selection = takenApart(statement);
    auto view = std::make_unique<View>();
    view->own = &own;
    view->rows.setObjectName(own.objectName());
    view->rows.setConnection(own.connection());
    view->rows.setTableName(selection.table);
    view->rows.setIndexFieldNames(selection.order.isEmpty() ? own.indexFieldNames() : selection.order);
    // Without a condition the view is read-only all the same.
    view->rows.setRestriction(selection.condition.isEmpty() ? QStringLiteral("1=1") : selection.condition);
    view->rows.open();
    for (const widgets::GridColumn& column : grid.gridColumns())
        view->formats.append(column.displayFormat);
    grid.setDataset(&view->rows);
    m_views[&grid] = std::move(view);
    QObject::connect(&grid, &QObject::destroyed, &m_context, [this, gone = &grid] { m_views.erase(gone); });
    Build_Fields(grid, kFloatFormat, QString());
}

void RestrictedViews::restore(widgets::DataGrid& grid) {
    const auto view = m_views.find(&grid);
    grid.setDataset(view->second->own);
    for (int column = 0; column < view->second->formats.size(); ++column)
        grid.setColumnFormat(column, view->second->formats[column]);
    m_views.erase(view);
}

void Build_Fields(widgets::DataGrid& grid, const QString& floatFormat, const QString& intFormat) {
    const data::Dataset& rows = *grid.dataset();
    for (int column = 0; column < grid.gridColumns().size(); ++column) {
        const int field = rows.columnIndex(grid.gridColumns()[column].field);
        if (field < 0)
            continue;
        if (rows.columns()[field].type == data::ColumnType::Real)
            grid.setColumnFormat(column, floatFormat);
        else if (rows.columns()[field].type == data::ColumnType::Integer && !intFormat.trimmed().isEmpty())
            grid.setColumnFormat(column, intFormat);
    }
}
