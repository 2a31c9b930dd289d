// What a confirmation has to know of the company before it can ask about those who hold the rows' codes.
#pragma once

#include "Questions.h"
#include "ReferenceMove.h"

namespace definition {

struct HolderFacts {
    TableColumns columns;       // of the tables that hold something, and that there are
    QString newestMonth;        // that the confirmed table has rows of; empty for none
    int mostRowsElsewhere = 0;  // that another month has
};

// Asks for the columns of those of the tables that there are.
void askColumns(data::Questions& questions, TableColumns& columns, const QStringList& tables);

// Asks for the facts about the rows of `table` and those who hold them, `tables`; `facts` is there until they
// are answered.
void askFacts(data::Questions& questions, HolderFacts& facts, const QString& table, const QString& month,
              const QStringList& tables);

}  // namespace definition
