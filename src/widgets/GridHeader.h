// The two edges of a grid: titles that look like buttons, and the indicator of the current row.
#pragma once

#include <QHeaderView>
#include <functional>

namespace widgets {

// Draws a face with the subtle relief that titles and indicator cells share.
void paintRaised(QPainter& painter, const QRect& rect, const QColor& face);

// The titles of the columns.
class TitleHeader : public QHeaderView {
    Q_OBJECT

public:
    struct Colors {
        QColor face, text;
    };

    explicit TitleHeader(QWidget* parent);
    std::function<Colors(int column)> colors;

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
};

// What the edge says of a row.
enum class Indicator { None, Current, Edited, New };

// The edge beside the rows.
class IndicatorHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit IndicatorHeader(QWidget* parent);
    std::function<Indicator(int row)> indicator;
    QColor face;

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
    void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace widgets
