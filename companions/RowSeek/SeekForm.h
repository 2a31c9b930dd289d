// The search dialog: a text, and the way to the next and the previous row that holds it.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include "ColumnSearch.h"
#include "DialogForm.h"

namespace rowseek {

class SeekForm : public forms::DialogForm {
public:
    // Searches the selected column; each find moves the grid's cursor.
    SeekForm(widgets::DataGrid& grid, const QString& previous);

    // The text searched for last; what was given as `previous` while there was no search.
    const QString& searched() const { return m_searched; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void search(bool forwards);
    QString report(const ColumnSearch::Found& found, bool forwards) const;
    void stepAside();

    widgets::DataGrid& m_grid;
    ColumnSearch m_search;
    QString m_title;
    QString m_searched;
    QLineEdit* SearchEdit;
    QCheckBox* chBegin;
    QLabel* lbStatus;
};

}  // namespace rowseek
