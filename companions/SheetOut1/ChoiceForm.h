// What an advanced report shows: which columns in which order, their sums, and groups of rows.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QTableWidget>

#include "DialogForm.h"
#include "GridReport.h"

class TAdvPrintForm : public forms::DialogForm {
public:
    explicit TAdvPrintForm(const QList<report::ReportColumn>& columns);

    // The chosen ones in the chosen order, then one that is only grouped by; it is not shown.
    QList<report::ReportColumn> columns() const;
    report::Grouping grouping() const;

private:
    void build();
    void addRow(int row, int column, bool shown, bool summed);
    void moveRow(int step);
    void look();
    int columnAt(int row) const;
    void accept();

    QList<report::ReportColumn> m_columns;
    QTableWidget* m_list;
    QComboBox* m_group;
    QCheckBox *m_subTotals, *m_newPages;
};
