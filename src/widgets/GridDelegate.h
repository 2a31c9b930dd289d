// How a grid's cells are drawn.
#pragma once

#include <QStyledItemDelegate>

#include "DataGrid.h"

namespace widgets {

class GridModel;

class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    GridDelegate(DataGrid* grid, GridModel* model);
    void setColors(const GridColors& colors);
    const GridColors& colors() const { return m_colors; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    struct Look {
        QColor background, text;
        bool frame = false;
    };
    Look look(int row, int column) const;
    enum class Content { Words, Code, Number };
    QString fitted(QPainter& painter, const QString& text, int width, Content content) const;

    DataGrid* m_grid;
    GridModel* m_model;
    GridColors m_colors;
    QColor m_line;  // between the cells
};

}  // namespace widgets
