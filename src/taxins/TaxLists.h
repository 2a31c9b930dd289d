// The tax authority's code lists, as it has published them, and when a company's list is replaced by
// the published one.
#pragma once

#include <QList>
#include <QString>

#include "Dataset.h"
#include "HostContext.h"

namespace taxins {

struct TaxCode {
    int code = 0;
    QString title;  // to the last letter and blank
};

enum class Refill {
    WhenEmpty,
    WhenEmptyOrFormer,  // also when it is an earlier edition, told by its number of rows
    UnlessComplete      // whenever it has not the published number of rows
};

struct TaxList {
    QString table;
    QString count;  // what the count query calls its rows
    QList<TaxCode> rows;
    Refill refill = Refill::WhenEmpty;
    int formerRows = 0;
    // A list of the former size that holds all published rows has been added to: it stays.
    bool keepsAdded = false;
};

// In the order in which they are counted and filled.
const QList<TaxList>& taxLists();

// The lists that an operator can choose, in the order of the choice.
const QStringList& chosenLists();

// Brings every list up to the published one where its rule says so, each in a transaction of its own, the
// one that `shown` holds through it. One statement where nothing is to be done. A list that is refused
// stays as it was and stops no other; the first refusal is thrown when all have had their turn.
void seedTaxLists(data::HostDatabase& db, data::Dataset& shown);

}  // namespace taxins
