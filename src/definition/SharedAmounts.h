// Several pages have the employees' amounts of their rows in the same columns of one table.
#pragma once

#include <QMap>

#include "Questions.h"
#include "ReferenceMove.h"

namespace definition {

// The tables of the pages that have amounts where the rows of `table` have theirs.
QStringList amountSharers(const Reference& amounts, const QString& table);

// Amounts that would be lost when the rows of a table take columns that were no row's of it.
class LostAmounts {
public:
    // Asks how many employees have such amounts, and which rows of other pages the columns belong to as well:
    // nothing where none is taken, and where no other page has amounts in that table. `columns` are those of
    // the amounts' table, `tables` those that the company has, in lower case. To be kept until it is
    // answered.
    void ask(data::Questions& questions, const QString& table, const QString& month, const Reference& amounts,
             const Renumbering& renumbering, const TableColumns& columns);

    // What the operator has to agree to; empty where no amount is lost.
    QString question() const;

private:
    struct Taken {
        QString column;
        qint64 employees = 0;
        QStringList owners;
    };
    QMap<qint64, Taken> m_taken;  // by code
};

}  // namespace definition
