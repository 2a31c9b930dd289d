// A page as a value: which table it edits, under which rules, in which words. DefinitionPage carries
// it out.
#pragma once

#include <QVariant>

#include "PageLayout.h"

namespace definition {

// The monthly table whose columns "code_" + n hold every employee's amount of item n.
struct AmountTable {
    QString name;
    // Name under which Add_PayItem_Columns knows it; empty when the company's schema has all columns.
    QString upgradeName;
};

enum class NewRow {
    OnlyFromLastRow,  // starting one anywhere else is abandoned
    AfterLastRow      // the page goes to the last row first
};

struct PageMessages {
    QString emptyCode;
    QString emptyName;
    QString repeatedName;
    QString inUse;
};

struct PageDefinition {
    const forms::PageLayout* layout = nullptr;
    QString table;
    int maxRows = 99;
    QString codeField = QStringLiteral("Code_field");
    NewRow newRow = NewRow::AfterLastRow;
    // Further values of a new row, besides its code and its month.
    QList<std::pair<QString, QVariant>> defaults;
    // Numbers that never stay above a limit: they become the limit when the column or the row is left.
    QList<std::pair<QString, int>> limits;
    PageMessages messages;
    AmountTable amounts;
    // Statements that bring an older company's table up to date before it is read.
    QStringList upgrades;
    // Upgrades that follow a confirmation, by the names that Add_PayItem_Columns knows.
    QStringList upgradesAfterConfirm;
    // Whether typed characters pass the Persian keyboard correction.
    bool fixesKeys = true;
    // Key of the page's stored grid layout, and the title of its reports.
    QString pageKey;
    QString reportTitle;
};

}  // namespace definition
