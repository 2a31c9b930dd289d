// What a company file holds, to be compared, and whether it is sound.
#pragma once

#include <QMap>
#include <QStringList>

namespace play {

// The rows of each table as texts, in their order. Work tables, layouts of grids and empty values are left
// out.
using CompanyState = QMap<QString, QStringList>;

// Opens the file as the host does after whatever has befallen it: what programs have left is dropped first.
// What is wrong with it then is added to `trouble`.
CompanyState stateOf(const QString& file, QStringList& trouble);

// A copy in the place of what was there, with what programs have left beside it.
void copyAnew(const QString& from, const QString& to);

// The tables in which two states differ, for a report.
QString differenceOf(const CompanyState& one, const CompanyState& other);

// The amounts of all employees of the month, a text for each item that anybody has something of: whichever
// code it has, these belong together.
QStringList amountsOf(const CompanyState& state);

}  // namespace play
