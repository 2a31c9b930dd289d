#include "GridBlock.h"

#include <QClipboard>
#include <QGuiApplication>

#include "Query.h"

namespace {

bool endsCell(QChar character) {
    return character == u'\t' || character == u'\n' || character == u'\r';
}

QString quotedCell(const QString& text) {
    if (!text.startsWith(u'"') && std::none_of(text.begin(), text.end(), endsCell))
        return text;
    QString doubled = text;
    return u'"' + doubled.replace(u'"', QLatin1String("\"\"")) + u'"';
}

// Takes a cell off the beginning of the text. Text behind a closing quote belongs to the cell.
QString takeCell(QStringView& text) {
    QString cell;
    qsizetype at = 0;
    if (text.startsWith(u'"') && text.indexOf(u'"', 1) > 0) {
        for (at = 1; at < text.size(); ++at) {
            if (text[at] == u'"' && (at + 1 == text.size() || text[++at] != u'"'))
                break;
            cell += text[at];
        }
        if (at < text.size() && text[at] == u'"')
            ++at;
    }
    for (; at < text.size() && !endsCell(text[at]); ++at)
        cell += text[at];
    text = text.mid(at);
    return cell;
}

}  // namespace

void Copy_Block(widgets::DataGrid& grid, const widgets::GridBlock& block) {
    data::Dataset& rows = *grid.dataset();
    rows.checkBrowseMode();
    QStringList lines;
    for (int row = block.first; row <= block.last; ++row) {
        QStringList cells;
        for (const int column : block.columns)
            cells.append(quotedCell(
                data::valueText(rows.valueAt(row, rows.columnIndex(grid.gridColumns()[column].field)))));
        lines.append(cells.join(u'\t'));
    }
    QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

QList<QStringList> Parse_Block(QStringView text) {
    QList<QStringList> lines;
    while (!text.isEmpty()) {
        QStringList line = {takeCell(text)};
        while (text.startsWith(u'\t')) {
            text = text.mid(1);
            line.append(takeCell(text));
        }
        lines.append(line);
        text = text.mid(text.startsWith(QLatin1String("\r\n")) ? 2 : 1);
    }
    return lines;
}

bool Is_Block(const QString& text) {
    const QList<QStringList> lines = Parse_Block(text);
    return lines.size() > 1 || (lines.size() == 1 && lines.first().size() > 1);
}
