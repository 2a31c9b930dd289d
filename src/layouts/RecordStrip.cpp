#include "RecordStrip.h"

#include <QPaintEvent>
#include <QPainter>

#include "Components.h"

namespace layouts {

class RecordStrip::Cells : public QWidget {
public:
    static constexpr int kCell = 18, kLine = 22;  // pixels

    using QWidget::QWidget;

    QString text;
    QByteArray bytes;
    QList<int> fields;

    qsizetype cells() const { return qMax(text.size(), bytes.size()); }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.fillRect(event->rect(), Qt::white);
        const int first = event->rect().left() / kCell;
        const int last = qMin<int>(event->rect().right() / kCell, static_cast<int>(cells()) - 1);
        for (int i = first; i <= last; ++i) {
            const QRect cell(i * kCell, 0, kCell, kLine);
            painter.setPen(fields.contains(i + 1) ? Qt::darkBlue : QColor(0xD8, 0xD8, 0xD8));
            painter.drawLine(cell.left(), fields.contains(i + 1) ? 0 : kLine, cell.left(), height());
            painter.setPen(Qt::darkGray);
            painter.setFont(widgets::formFont(10));
            painter.drawLine(cell.center().x(), kLine - 4, cell.center().x(), kLine);
            if ((i + 1) % 10 == 0 || i == 0)
                painter.drawText(cell.adjusted(-kCell, 0, kCell, -4), Qt::AlignCenter,
                                 QString::number(i + 1));
            painter.setPen(Qt::black);
            painter.setFont(widgets::formFont(13));
            painter.drawText(cell.translated(0, kLine), Qt::AlignCenter, text.mid(i, 1));
            painter.setFont(widgets::formFont(10));
            if (i < bytes.size())
                painter.drawText(cell.translated(0, 2 * kLine), Qt::AlignCenter,
                                 QString::fromLatin1(bytes.mid(i, 1).toHex().toUpper()));
        }
    }
};

RecordStrip::RecordStrip(QWidget* parent) : QScrollArea(parent), m_cells(new Cells) {
    setObjectName(QStringLiteral("RecordStrip"));
    // A file is read from its first byte on, whatever it is written in.
    setLayoutDirection(Qt::LeftToRight);
    m_cells->setLayoutDirection(Qt::LeftToRight);
    setWidget(m_cells);
    setFixedHeight(3 * Cells::kLine + 22);
    setFocusPolicy(Qt::NoFocus);
}

void RecordStrip::show(const QString& text, const QByteArray& bytes, const QList<int>& fields) {
    m_cells->text = text;
    m_cells->bytes = bytes;
    m_cells->fields = fields;
    m_cells->resize(static_cast<int>(m_cells->cells()) * Cells::kCell + 1, 3 * Cells::kLine);
    m_cells->setAccessibleName(text);
    m_cells->update();
}

void RecordStrip::showPosition(int position) {
    ensureVisible((position - 1) * Cells::kCell, 0, 4 * Cells::kCell, 0);
}

}  // namespace layouts
