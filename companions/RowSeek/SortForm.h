// The sort dialog: the columns that order the rows, the first of them above all, each up or down.
#pragma once

#include <QLabel>
#include <QListWidget>

#include "DataGrid.h"
#include "DialogForm.h"

namespace rowseek {

class SortForm : public forms::DialogForm {
public:
    // The grid's dataset gets its new order when the operator confirms.
    explicit SortForm(widgets::DataGrid& grid);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Key {
        QString field;
        QString title;
        bool descends = false;
    };

    QListWidget* addList(QBoxLayout& column, const QString& name, const QString& caption);
    void loadOrder();
    void showLists(int available, int chosen);
    void addKey();
    void removeKey();
    void turnKey();
    void moveKey(int step);
    bool keyOfLists(const QObject* list, const QKeyEvent& event);
    QString order() const;
    void apply();

    data::Dataset& m_rows;
    QList<Key> m_available, m_chosen;
    QList<Key> m_columns;  // all that can order the rows, as the grid shows them
    QListWidget* lsColumns;
    QListWidget* lsOrder;
    QLabel* lbStatus;
};

}  // namespace rowseek
