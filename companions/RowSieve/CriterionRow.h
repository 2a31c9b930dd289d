// A criterion as the operator writes it: and/or, column, comparison and value side by side.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <functional>

#include "Criterion.h"

namespace rowsieve {

class CriterionRow : public QWidget {
public:
    // `fields` are those to choose from, `field` the place of the first choice; they must outlive the row.
    CriterionRow(const QList<Field>& fields, int field, QWidget* parent);

    Criterion criterion() const;
    // The first row follows no other: it has nothing to be joined to.
    void setFirst(bool first);
    // Puts the cursor where the value is written, or, where none is, on the comparison.
    void focusValue();

    QWidget* firstInTabOrder() const;
    QWidget* lastInTabOrder() const;

    std::function<void()> onChange;

private:
    void showComparisons();
    void showValue();
    void changed();

    const QList<Field>& m_fields;
    QComboBox* cmbJoin;
    QComboBox* cmbColumn;
    QComboBox* cmbComparison;
    QLineEdit* ValueEdit;
};

}  // namespace rowsieve
