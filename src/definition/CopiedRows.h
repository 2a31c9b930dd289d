// Which of the month's stored rows the rows of a work copy are: by the code and the place that each had
// when the copy was made or last confirmed.
#pragma once

#include <QList>

namespace definition {

struct CopiedRow {
    qint64 code = 0;
    int place = 0;  // from 1; 0 for a row that was not copied
};

class CopiedRows {
public:
    CopiedRows() = default;
    // Of the rows in their order; 0 for an empty code.
    explicit CopiedRows(const QList<qint64>& codes);

    bool isEmpty() const { return m_left.isEmpty(); }
    // Of all rows that were copied, deleted ones included.
    const QList<qint64>& codes() const { return m_codes; }
    // Of those that are left, the n-th, and the n-th with that code, from 0; none where there are fewer.
    CopiedRow left(qsizetype n) const { return m_left.value(n); }
    CopiedRow withCode(qint64 code, int n) const;
    void remove(const CopiedRow& row);
    // The row that stands at a place now, from 0, is one under which something is stored already: as if it
    // had been copied, with that code. New rows before it stay new.
    void adopt(int row, qint64 code);

private:
    QList<qint64> m_codes;
    QList<CopiedRow> m_left;
};

}  // namespace definition
