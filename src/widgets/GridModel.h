// What a grid shows of a dataset: texts, and where they stand. Holds nothing of the rows itself.
#pragma once

#include <QAbstractTableModel>
#include <QPointer>

#include "DataGrid.h"

namespace widgets {

class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setDataset(data::Dataset* dataset);
    data::Dataset* dataset() const { return m_dataset; }
    void setGridColumns(const QList<GridColumn>& columns);
    const QList<GridColumn>& gridColumns() const { return m_columns; }
    // What a hidden column is given: its header does not tell it.
    void setWidth(int column, int width) { m_columns[column].width = width; }
    void setFormat(int column, const QString& format) { m_columns[column].displayFormat = format; }

    // Index of a column's field in the dataset, -1 when it has none.
    int field(int column) const { return m_fields.value(column, -1); }
    bool isNumber(int column) const;
    Qt::Alignment alignment(int column) const;
    // What the column shows of a value.
    QString format(int column, const QVariant& value) const;
    // A server that fails while cells are painted leaves them empty; the next look asks again.
    QString text(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void reset();
    QVariant spoken(const QModelIndex& index, int role) const;

    QPointer<data::Dataset> m_dataset;
    QList<GridColumn> m_columns;
    QList<int> m_fields;
    int m_rows = 0;
};

// A number by an ICU pattern ("###,###,##0.##"), with ASCII digits whatever the locale.
QString formatNumber(const QString& pattern, double number);

}  // namespace widgets
