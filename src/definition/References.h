// What refers to the rows of a page: the one declaration from which come the refusal to delete a row that
// is needed and what follows the rows when their codes change.
#pragma once

#include <QList>
#include <QString>

namespace definition {

// How a table names a row of another.
enum class HeldAs {
    Code,         // by its code, less one where so declared
    ColumnName,   // by the name of an amount column, "code_4", as a text
    ShareList,    // in a list of shares, (code_1*100)+(code_4*50)
    Amounts,      // its code is in the name of a column: "code_4" has the amounts of row 4
    Place,        // its place among the rows, from 1, is in the name of a column
    LayoutTable,  // its place is in the name of a table
    Prefix        // its code begins the holder's own
};

struct Reference {
    HeldAs as;
    // The table that holds it; of a LayoutTable the beginning of the tables' names.
    QString table;
    // The column that holds it; where columns are named after the rows, the beginning of their names.
    QString column;
    // What operators call those who hold it.
    QString title;
    // The table has rows of each month, and holds what belongs to the same month. Else the rows are of no
    // month and belong to the newest month that has rows to refer to.
    bool ofMonth = true;
    // What is held is the code less one.
    bool lessOne = false;
    // A record that names a deleted row goes with it; else only the name does.
    bool goesWithRow = false;
    // A column that is emptied together with this one; may be empty.
    QString alongside = {};
    // A statement that finds a record for whose sake a row may not be deleted: %1 what it holds, %2 the
    // month. Empty where none keeps a row. Amounts above 0 always do.
    QString keepsRow = {};
    // Amounts: the name under which Add_PayItem_Columns knows the table; empty where each new row's column
    // is added alone.
    QString upgradeName = {};
    // The column with the code of the employee whose record it is; empty where the holder is a row of a page.
    QString person = {};
    // What the record has of it, as an expression; empty for nothing, or where the held column says it.
    QString amount = {};
    // Code and name of a holder that is a row of a page; empty where such holders are only counted.
    QString holderCode = QStringLiteral("Code_field");
    QString holderName = QStringLiteral("Desk");
};

// The rows that are referred to.
struct ReferredRows {
    QString table;
    // What operators call their page.
    QString title;
    QList<Reference> references;
};

// Whether the names are of one table: letter case does not count.
bool sameTable(const QString& one, const QString& other);

// All that is declared.
const QList<ReferredRows>& referredRows();

// What refers to the rows of the table; nothing where no one does. The name's letter case does not count.
const QList<Reference>& referencesTo(const QString& table);

}  // namespace definition
