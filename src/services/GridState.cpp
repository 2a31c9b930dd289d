#include "GridState.h"

#include "DatabaseHelpers.h"
#include "Untfmsg.h"

namespace {

constexpr int kWidest = 10'000;  // pixels; what goes beyond was never set by an operator

QString ofLayout(const data::HostContext& context, const GridStateKey& key) {
    return " Where UserId=" + data::quoted(QString::number(context.UserId)) +
           " And sProg = " + data::quoted(key.program) + " And sItem = " + data::quoted(key.item) +
           " And sForm =" + data::quoted(key.form) + " And sPart=" + data::quoted(key.part);
}

QString deletion(const data::HostContext& context, const GridStateKey& key) {
    return "Delete From Grid_State" + ofLayout(context, key);
}

// Several pages may share a key: those rows of it that are a grid's own.
QString ofGrid(const widgets::DataGrid& grid) {
    QStringList fields;
    for (const widgets::GridColumn& column : grid.gridColumns())
        fields.append(data::quoted(column.field));
    return " And sColName In (" + fields.join(u',') + u')';
}

QString insertion(const data::HostContext& context, const GridStateKey& key, const QString& field,
                  const widgets::ColumnLayout& layout, int place) {
    const QStringList values = {data::quoted(QString::number(context.UserId)),
                                layout.visible ? QStringLiteral("'T'") : QStringLiteral("'F'"),
                                data::quoted(key.program),
                                data::quoted(key.item),
                                data::quoted(key.form),
                                data::quoted(key.part),
                                data::quoted(field),
                                QString::number(layout.width),
                                QString::number(place)};
    return "Insert Into Grid_State(UserId, sVisible, sProg, sItem, sForm, sPart, sColName, iLen, iRaj) "
           "Values(" +
           values.join(QStringLiteral(", ")) + u')';
}

bool isOpen(const widgets::DataGrid& grid) {
    return grid.dataset() && grid.dataset()->active();
}

void tell(const QString& text) {
    Show_Msg(text, QString(), QStringLiteral("1ER"));
}

// The stored columns that the grid still has, in their order, each as the grid is to show it.
QList<widgets::ColumnLayout> storedLayout(data::Query& query, const widgets::DataGrid& grid) {
    QList<widgets::ColumnLayout> known = grid.columnLayout(), stored;
    for (; !query.eof(); query.next()) {
        const QString field = query.text(QStringLiteral("sColName"));
        const auto found = std::find_if(known.begin(), known.end(), [&](const widgets::ColumnLayout& layout) {
            return grid.gridColumns()[layout.column].field.compare(field, Qt::CaseInsensitive) == 0;
        });
        if (found == known.end())
            continue;
        widgets::ColumnLayout layout = *found;
        known.erase(found);
        layout.visible = query.text(QStringLiteral("sVisible")).trimmed() != QLatin1String("F");
        const qint64 width = query.integer(QStringLiteral("iLen"));
        if (width > 0 && width <= kWidest)
            layout.width = static_cast<int>(width);
        stored.append(layout);
    }
    return stored;
}

}  // namespace

void Save_Grid_State(data::HostDatabase& db, const data::HostContext& context, const widgets::DataGrid& grid,
                     const GridStateKey& key) {
    if (!isOpen(grid) || grid.gridColumns().isEmpty())
        return;
    data::Transaction transaction(*db.Connection);
    Exec_Sql(db, deletion(context, key) + ofGrid(grid));
    int place = 0;
    for (const widgets::ColumnLayout& layout : grid.columnLayout())
        Exec_Sql(db, insertion(context, key, grid.gridColumns()[layout.column].field, layout, place++));
    transaction.commit();
    tell(QStringLiteral("وضعيت ستونها ثبت شد."));
}

void Reset_Grid_State(data::HostDatabase& db, const data::HostContext& context, const widgets::DataGrid& grid,
                      const GridStateKey& key) {
    if (!isOpen(grid))
        return;
    Exec_Sql(db, deletion(context, key));
    tell(
        QStringLiteral("ستونها به وضعيت اوليه بازگشت. \nلطفا براي مشاهده ستونهاي اوليه\n"
                       "از فرم خارج شده و دوباره وارد شويد."));
}

void Restore_Grid_State(data::HostDatabase& db, const data::HostContext& context, widgets::DataGrid& grid,
                        const GridStateKey& key) {
    data::Query query(db.Connection);
    query.setSql("Select sVisible, sColName, iLen, iRaj From Grid_State" + ofLayout(context, key) +
                 " Order By iRaj");
    query.open();
    QList<widgets::ColumnLayout> stored = storedLayout(query, grid);
    if (stored.isEmpty())
        return;
    // Those that the layout does not know stand where they were designed; the others fill the places left.
    QList<widgets::ColumnLayout> unknown = grid.columnLayout();
    unknown.removeIf([&](const widgets::ColumnLayout& layout) {
        return std::any_of(stored.begin(), stored.end(),
                           [&](const widgets::ColumnLayout& other) { return other.column == layout.column; });
    });
    std::sort(unknown.begin(), unknown.end(),
              [](const auto& one, const auto& other) { return one.column < other.column; });
    for (const widgets::ColumnLayout& layout : unknown)
        stored.insert(layout.column, layout);
    grid.setColumnLayout(stored);
}
