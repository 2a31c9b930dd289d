#include "GridDelegate.h"

#include <QPainter>

#include "GridModel.h"

namespace widgets {
namespace {

constexpr int kSmallestNumber = 8;  // pixels of a number that is still read

QColor blend(const QColor& one, const QColor& other, qreal share) {
    const auto mix = [share](int a, int b) { return qRound(a * (1 - share) + b * share); };
    return QColor(mix(one.red(), other.red()), mix(one.green(), other.green()),
                  mix(one.blue(), other.blue()));
}

void drawMark(QPainter& painter, const QRect& cell, const QColor& ink) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF centre = QRectF(cell).center();
    const QPointF stroke[] = {centre + QPointF(-4.5, 0.5), centre + QPointF(-1.5, 4),
                              centre + QPointF(5, -4.5)};
    painter.drawPolyline(stroke, 3);
}

bool hasPersian(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        return character.direction() == QChar::DirAL || character.direction() == QChar::DirR;
    });
}

}  // namespace

// Measuring a text costs as much as drawing it: one that must fit by its length alone is not measured.
// Words are cut. A number or a code cut short would read as another one: it is drawn smaller; where that is
// not enough a code is cut all the same, and a number becomes "###".
QString GridDelegate::fitted(QPainter& painter, const QString& text, int width, Content content) const {
    const QFontMetrics metrics = m_grid->fontMetrics();
    const int widest = content == Content::Number ? metrics.averageCharWidth() * 3 / 2 : metrics.height();
    if (text.size() * widest <= width)
        return text;
    if (content == Content::Words)
        return metrics.elidedText(text, Qt::ElideRight, width);
    const int needed = metrics.horizontalAdvance(text);
    if (needed <= width)
        return text;
    QFont font = m_grid->font();
    font.setPixelSize(QFontInfo(font).pixelSize() * width / needed);
    if (font.pixelSize() < kSmallestNumber)
        return content == Content::Number ? QStringLiteral("###")
                                          : metrics.elidedText(text, Qt::ElideRight, width);
    painter.setFont(font);
    return text;
}

GridDelegate::GridDelegate(DataGrid* grid, GridModel* model)
    : QStyledItemDelegate(grid), m_grid(grid), m_model(model) {}

void GridDelegate::setColors(const GridColors& colors) {
    m_colors = colors;
    m_line = blend(colors.background, Qt::black, 0.18);
}

GridDelegate::Look GridDelegate::look(int row, int column) const {
    const bool readOnly = m_model->gridColumns()[column].readOnly;
    Look result{readOnly ? m_colors.readOnlyBackground : m_colors.background,
                readOnly ? m_colors.readOnlyText : m_colors.text};
    if (m_grid->cellBackground) {
        try {
            if (const QColor own = m_grid->cellBackground(row, column); own.isValid())
                result.background = own;
        } catch (const std::exception&) {
            // A cell that cannot be judged keeps the grid's colour.
        }
    }
    if (const std::optional<GridBlock> block = m_grid->block();
        block && row >= block->first && row <= block->last && block->columns.contains(column))
        result.background =
            blend(result.background, m_grid->palette().color(QPalette::Active, QPalette::Highlight), 0.35);
    const data::Dataset* dataset = m_model->dataset();
    if (dataset == nullptr || row != dataset->row() || column != m_grid->selectedColumn())
        return result;
    const QPalette& palette = m_grid->palette();
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    if (m_grid->hasFocus() || m_grid->typingInCell())
        return {highlight, palette.color(QPalette::Active, QPalette::HighlightedText), true};
    return {blend(result.background, highlight, 0.35), result.text, true};
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const int column = index.column();
    const QRect cell = option.rect;
    const Look colors = look(index.row(), column);
    const QString text = m_model->text(index.row(), column);
    painter->save();
    painter->setFont(m_grid->font());
    painter->fillRect(cell, colors.background);
    painter->setPen(m_line);
    painter->drawLine(cell.bottomLeft(), cell.bottomRight());
    painter->drawLine(cell.topLeft(), cell.bottomLeft());
    if (m_model->gridColumns()[column].kind == ColumnKind::Mark && text == QStringLiteral("✓")) {
        drawMark(*painter, cell, colors.text);
    } else if (!text.isEmpty()) {
        const QRect room = cell.adjusted(4, 0, -3, -1);
        const Content content = m_model->isNumber(column) ? Content::Number
                                : hasPersian(text)        ? Content::Words
                                                          : Content::Code;
        painter->setPen(colors.text);
        // In a right-to-left run the sign of a number and the dots of a cut file name would change sides.
        painter->setLayoutDirection(content == Content::Words ? m_grid->layoutDirection() : Qt::LeftToRight);
        painter->drawText(room, static_cast<int>(m_model->alignment(column)) | Qt::TextSingleLine,
                          fitted(*painter, text, room.width(), content));
    }
    painter->restore();
}

}  // namespace widgets
