// Whether a tax table is sound: advice about its brackets, and a window with their chart. Nothing is ever
// refused for it.
#pragma once

#include <QList>
#include <QString>

#include "TaxBrackets.h"

namespace definition {

class DefinitionPage;

struct TaxNote {
    int row = 0;  // from 1; of two rows that do not fit the later
    QString text;
};

// What is to be said of the brackets, in their order: gaps, overlaps, falling percents, a tax that is not the
// sum of its brackets (within one rial), a first bound above 1.
QList<TaxNote> taxNotes(const QList<Bracket>& brackets);

bool hasBrackets(const DefinitionPage& page);
// "2 نكته در جدول ماليات"; empty for a sound table.
QString taxAdvice(DefinitionPage& page);
void checkTaxTable(DefinitionPage& page);

}  // namespace definition
