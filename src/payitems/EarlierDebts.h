// The debts that a bonus may settle: the month's deductions among the non-continuous benefits.
#pragma once

#include "Dataset.h"
#include "HostContext.h"

namespace payitems {

struct Debt {
    QString name;
    QString column;  // of the amounts that employees owe
};

// They can be looked at and no more.
class EarlierDebts : public data::Dataset {
public:
    EarlierDebts();

    void read(data::HostDatabase& db, const QString& month);
    Debt at(int row) const;
    // The debt of that name, blanks and kashida apart; of several the one with that column, else the first.
    std::optional<Debt> named(const QString& name, const QString& column) const;
};

}  // namespace payitems
