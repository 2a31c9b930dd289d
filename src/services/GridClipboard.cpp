// Rows and cells by the clipboard.
#include <QClipboard>
#include <QGuiApplication>

#include "CodePage.h"
#include "DatasetTable.h"
#include "Errors.h"
#include "GridExport.h"
#include "GridRows.h"
#include "Query.h"

namespace {

constexpr qsizetype kLongestRow = 1 << 20, kLongestText = 32767, kLongestNumber = 64;  // characters

bool isOpen(const widgets::DataGrid& grid) {
    return grid.dataset() && grid.dataset()->active();
}

const widgets::GridColumn* columnOf(const widgets::DataGrid& grid, const QString& field) {
    for (const widgets::GridColumn& column : grid.gridColumns())
        if (column.field.compare(field, Qt::CaseInsensitive) == 0)
            return &column;
    return nullptr;
}

// Refuses what the column does not hold, before anything is touched.
void requireFit(const data::ColumnInfo& stored, const widgets::GridColumn* column, const QString& text) {
    qsizetype longest = stored.type == data::ColumnType::Text ? kLongestText : kLongestNumber;
    if (stored.length > 0)
        longest = stored.length;
    if (column && column->maxLength > 0)
        longest = column->maxLength;
    if (text.size() > longest)
        throw data::Refusal(
            QStringLiteral("اين متن از اندازه ستون بيشتر است: حداکثر %1 نويسه.").arg(longest));
    const bool isMark = column && column->kind == widgets::ColumnKind::Mark;
    if (isMark && !text.trimmed().isEmpty() && text.trimmed() != data::kMark)
        throw data::Refusal(QStringLiteral("در اين ستون فقط علامت پذيرفته مي شود."));
    data::columnValue(stored, text);
}

// --- row text ---------------------------------------------------------------------------------------

struct FieldText {
    int field;  // of the dataset
    QString text;
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

void requireFit(const data::Dataset& dataSet, const widgets::DataGrid& grid, const FieldText& field) {
    const data::ColumnInfo& stored = dataSet.columns()[field.field];
    const widgets::GridColumn* column = columnOf(grid, stored.name);
    try {
        requireFit(stored, column, field.text);
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

void Paste_Row(data::Dataset& dataSet, widgets::DataGrid& grid, const QString& rowText) {
    if (!dataSet.active() || !isOpen(grid))
        return;
    if (rowText.size() > kLongestRow)
        refuseRow(QStringLiteral("بسيار بلند است."));
    QList<FieldText> fields = parseRow(dataSet, rowText, shownFields(grid).size());
    fields.removeIf([&](const FieldText& field) { return dataSet.columns()[field.field].identity; });
    for (const FieldText& field : fields)
        requireFit(dataSet, grid, field);
    // A cell being typed into would put its text over what is pasted.
    grid.commitCell();
    dataSet.edit();
    for (const FieldText& field : fields)
        dataSet.setValue(field.field, field.text);
}

void Copy_Cell(widgets::DataGrid& grid) {
    if (!isOpen(grid) || grid.dataset()->isEmpty())
        return;
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
    QString text = QGuiApplication::clipboard()->text();
    // Spreadsheets end a cell with a line break.
    while (text.endsWith(u'\n') || text.endsWith(u'\r'))
        text.chop(1);
    const int field = rows.columnIndex(column.field);
    requireFit(rows.columns()[field], &column, text);
    grid.commitCell();
    rows.setValue(field, oneLine(text));
}
