// A page as a value: which table it edits, under which rules, in which words. DefinitionPage carries
// it out.
#pragma once

#include <QVariant>
#include <optional>

#include "PageLayout.h"

class BaseWindow;

namespace definition {

class DefinitionPage;
struct PageDefinition;

// Makes a page of a declaration. `variable` is its exported form variable, `parent` what holds it.
using MakePage = DefinitionPage* (*)(const PageDefinition& definition, BaseWindow& window,
                                     DefinitionPage** variable, QWidget* parent);
DefinitionPage* makePage(const PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
                         QWidget* parent);

enum class PageKind {
    WorkCopy,  // a private copy of the month's rows, stored as a whole when it is confirmed
    Direct     // the table itself; every row is stored when it is left
};

// The columns that the rules speak of.
struct PageFields {
    QString code = QStringLiteral("Code_field");
    QString name = QStringLiteral("Desk");
    // The order of the rows; the code where nothing else is said.
    QString order = code;
};

enum class NewRow {
    OnlyFromLastRow,  // starting one anywhere else is abandoned
    AfterLastRow,     // the page goes to the last row first
    FromAnyRow,       // it comes after the last row and counts on from the row that was current
    Never             // the rows are given
};

enum class Deletion {
    Renumbers,    // the rows behind move up: codes are 1 to n without gaps
    LeavesCodes,  // the codes stay as they are
    Refused,      // in silence
    NotOffered    // the menu has no entry for it
};

struct PageMessages {
    // No such test where empty.
    QString emptyCode = {};
    QString emptyName = {};
    QString repeatedName = {};
    QString inUse = {};
    QString deleteQuestion = QStringLiteral("آيا كد مورد نظر حذف شود");
    QString deleteQuestionCode = QStringLiteral("3QC");
};

// The columns of a table of tax brackets.
struct BracketFields {
    QString from, to, percent, tax;
};

struct PageDefinition {
    const forms::PageLayout* layout = nullptr;
    PageKind kind = PageKind::WorkCopy;
    QString table;
    QStringList lists = {};  // the tables among which the operator chooses, where there are more
    // A direct page's table has the rows of every month and the page shows those of the current one.
    bool monthRows = false;
    int maxRows = 0;  // 0: as many as the operator likes
    PageFields fields = {};
    NewRow newRow = NewRow::AfterLastRow;
    Deletion deletion = Deletion::Renumbers;
    // Further values of a new row, besides its code and its month.
    QList<std::pair<QString, QVariant>> defaults = {};
    // Numbers that never stay above a limit: they become the limit when the column or the row is left.
    QList<std::pair<QString, int>> limits = {};
    // Columns that may not stay empty, each with what is said then.
    QList<std::pair<QString, QString>> required = {};
    // Takes the month's stored rows away before a work copy takes their place: %1 the table, %2 the month.
    QString emptiesMonth = QStringLiteral("delete from %1 where codemah=%2");
    // The table has no column for the code that a row had when it was copied, and the page keeps it.
    bool keepsCodes = false;
    PageMessages messages = {};
    // Behind its own columns the grid has a mark for each of the month's salary items, kept in the
    // table's columns CODMOZ_1, CODMOZ_2, …
    bool itemMarks = false;
    // Detail lists are made of this page's own rows; else of the month's salary items.
    bool listsOwnRows = false;
    // In place of a detail list there may be one fixed amount.
    bool fixedAmounts = false;
    // Statements that bring an older company's table up to date before it is read.
    QStringList upgrades = {};
    // Upgrades that follow a confirmation, by the names that Add_PayItem_Columns knows.
    QStringList upgradesAfterConfirm = {};
    // Whether a repeated key has a message of its own.
    bool tellsRepeatedKeys = true;
    // Whether typed characters pass the Persian keyboard correction.
    bool fixesKeys = true;
    // What the status line shows for a column without a hint.
    QString noHint = QStringLiteral("     ");
    // Of a page whose rows are tax brackets.
    std::optional<BracketFields> brackets = {};
    // Key of the page's stored grid layout, and the title of its reports.
    QString pageKey;
    QString reportTitle;
    // made<Page> (DefinitionPage.h) for a class of its own, where the declaration does not say all.
    MakePage make = makePage;
};

}  // namespace definition
