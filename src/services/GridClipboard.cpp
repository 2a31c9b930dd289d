// Rows and cells by the clipboard.
#include <QClipboard>
#include <QGuiApplication>

#include "CellText.h"
#include "Errors.h"
#include "GridBlock.h"
#include "GridExport.h"
#include "GridRows.h"
#include "Query.h"

namespace {

constexpr qsizetype kLongestRow = 1 << 20;  // characters

bool isOpen(const widgets::DataGrid& grid) {
    return grid.dataset() && grid.dataset()->active();
}

// The grid's column that shows the field; -1 for none.
int columnOf(const widgets::DataGrid& grid, const QString& field) {
    const QList<widgets::GridColumn>& columns = grid.gridColumns();
    for (int column = 0; column < columns.size(); ++column)
        if (columns[column].field.compare(field, Qt::CaseInsensitive) == 0)
            return column;
    return -1;
}

// --- row text ---------------------------------------------------------------------------------------

struct FieldText {
    int field;  // of the dataset
    QString text;
    QVariant value = {};  // that it stands for there
};

[[noreturn]] void refuseRow(const QString& why) {
    throw data::Refusal(QStringLiteral("متن حافظه يک رديف اين فهرست نيست. ") + why);
}

// Takes the text up to the separator, and the separator, away.
QStringView takeUpTo(QStringView& text, qsizetype separator) {
    const QStringView part = separator < 0 ? text : text.left(separator);
    text = separator < 0 ? QStringView() : text.mid(separator + 1);
    return part;
}

QList<FieldText> parseRow(const data::Dataset& dataSet, QStringView text, qsizetype count) {
    QList<FieldText> fields;
    QSet<int> seen;
    while (fields.size() < count) {
        const qsizetype equals = text.indexOf(u'=');
        if (equals < 0)
            refuseRow(QStringLiteral("بخشي از آن نيست."));
        const QString name = takeUpTo(text, equals).toString();
        const int field = dataSet.columnIndex(name);
        if (field < 0)
            refuseRow(QStringLiteral("ستون «%1» در فهرست نيست.").arg(oneLine(name).left(60)));
        if (seen.contains(field))
            refuseRow(QStringLiteral("ستون «%1» دو بار آمده است.").arg(name));
        seen.insert(field);
        fields.append({field, takeUpTo(text, text.indexOf(u'\t')).toString()});
    }
    if (!text.trimmed().isEmpty())
        refuseRow(QStringLiteral("ستونهاي آن بيشتر است."));
    return fields;
}

QVariant valueOf(const data::Dataset& dataSet, const widgets::DataGrid& grid, const FieldText& field) {
    const data::ColumnInfo& stored = dataSet.columns()[field.field];
    const int shown = columnOf(grid, stored.name);
    const widgets::GridColumn* column = shown < 0 ? nullptr : &grid.gridColumns()[shown];
    try {
        const QString text = column ? grid.admitted(shown, field.text) : widgets::cellLine(field.text);
        return widgets::cellValue(stored, column, text, widgets::cellLength(stored, column));
    } catch (const data::Refusal& refusal) {
        const QString title = column ? column->title.trimmed() : stored.name;
        throw data::Refusal(QStringLiteral("ستون «%1»: %2").arg(title, refusal.text()));
    }
}

// The fields that the grid's columns show, in the order in which they stand.
QStringList shownFields(const widgets::DataGrid& grid) {
    QStringList fields;
    for (const widgets::ColumnLayout& layout : grid.columnLayout())
        if (const QString& field = grid.gridColumns()[layout.column].field;
            grid.dataset()->columnIndex(field) >= 0 && !fields.contains(field))
            fields.append(field);
    return fields;
}

}  // namespace

QString Copy_Row(widgets::DataGrid& grid) {
    if (!isOpen(grid))
        return {};
    grid.dataset()->checkBrowseMode();
    if (grid.dataset()->isEmpty())
        return {};
    QString row;
    for (const QString& field : shownFields(grid))
        row += field + u'=' + oneLine(grid.dataset()->text(field)) + u'\t';
    return row;
}

void Paste_Row(data::Dataset& dataSet, widgets::DataGrid& grid, const QString& rowText,
               const QStringList& kept) {
    if (!dataSet.active() || !isOpen(grid))
        return;
    if (rowText.size() > kLongestRow)
        refuseRow(QStringLiteral("بسيار بلند است."));
    QList<FieldText> fields = parseRow(dataSet, rowText, shownFields(grid).size());
    fields.removeIf([&](const FieldText& field) {
        const data::ColumnInfo& column = dataSet.columns()[field.field];
        return column.identity || kept.contains(column.name, Qt::CaseInsensitive);
    });
    for (FieldText& field : fields)
        field.value = valueOf(dataSet, grid, field);
    // A cell being typed into would put its text over what is pasted.
    grid.commitCell();
    dataSet.edit();
    for (const FieldText& field : fields)
        dataSet.setValue(field.field, field.value);
}

void Copy_Cell(widgets::DataGrid& grid) {
    if (!isOpen(grid) || grid.dataset()->isEmpty())
        return;
    if (const std::optional<widgets::GridBlock> block = grid.block())
        return Copy_Block(grid, *block);
    const QString field = grid.gridColumns().value(grid.selectedColumn()).field;
    if (grid.dataset()->columnIndex(field) >= 0)
        QGuiApplication::clipboard()->setText(grid.typingInCell() ? grid.textInCell()
                                                                  : grid.dataset()->text(field));
}

void Paste_Cell(widgets::DataGrid& grid) {
    if (grid.gridColumns().isEmpty())
        return;
    data::Dataset& rows = *grid.dataset();
    const widgets::GridColumn& column = grid.gridColumns()[grid.selectedColumn()];
    if (!grid.canType() || !rows.restriction().isEmpty())
        throw data::Refusal(
            QStringLiteral("در ستون «%1» متني جاي نمي گيرد و چيزي تغيير نکرد.").arg(column.title.trimmed()));
    const QString text = grid.admitted(grid.selectedColumn(), QGuiApplication::clipboard()->text());
    const int field = rows.columnIndex(column.field);
    const data::ColumnInfo& stored = rows.columns()[field];
    const QVariant value = widgets::cellValue(stored, &column, text, widgets::cellLength(stored, &column));
    grid.commitCell();
    rows.setValue(field, value);
}
