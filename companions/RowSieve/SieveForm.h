// The filter dialog: rows of criteria, what they say as a sentence, and how many rows it leaves.
#pragma once

#include <QLabel>
#include <QScrollArea>
#include <QTimer>

#include "CriterionRow.h"
#include "DialogForm.h"

namespace rowsieve {

class SieveForm : public forms::DialogForm {
public:
    // The dynamic property that holds the statement when the form was closed with mrOk.
    static constexpr char kAnswer[] = "Answer";

    // Reads the grid and changes nothing of it; `table` is what is selected from.
    SieveForm(data::Connection& connection, widgets::DataGrid& grid, QString table);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool keyOfRows(const QKeyEvent& event);
    QList<Criterion> criteria() const;
    // The row that has the focus, else the last; -1 when there is none.
    int currentRow() const;
    void addRow();
    void removeRow();
    void moveFocus(int step);
    void showSentence();
    void showCount();
    // How many rows satisfy the criteria; no value when the server does not take them, which is told.
    std::optional<qint64> count();
    void confirm();

    data::Connection& m_connection;
    const QString m_table;
    const QList<Field> m_fields;
    const int m_firstField;
    QList<CriterionRow*> m_rows;
    QTimer m_pause;  // after the last change, before the rows are counted
    QString m_toldEmpty;
    QScrollArea* m_area;
    QVBoxLayout* m_lines;
    QLabel *lbSentence, *lbStatus;
};

}  // namespace rowsieve
