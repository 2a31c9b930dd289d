// Which page stands where, and who may use it.
#pragma once

#include "PageDefinition.h"

namespace shell {

// The place of a page. Its declaration says the rest.
struct PagePlace {
    const char* sheet;  // the tab sheet that shows it
    // Which item of the sheet's combo shows it, from 0, and what the combo calls it; -1 where the page has
    // the sheet, with all items of the combo that it may have, to itself.
    int item;
    const char* itemText;
    const char* right;  // rights entry that enables the combo's panel; empty: as the sheet
    definition::DefinitionPage** variable;
    const definition::PageDefinition& (*page)();
};

// Every page of the window, in the order in which closing destroys them.
const QList<PagePlace>& pageCatalogue();

// The items that the pages give to their sheet's combo, in its order; none where a page has it to itself.
QStringList comboItems(const QString& sheet);

// Whether the rights text enables the tab sheet.
bool sheetEnabled(const QString& sheet, const QString& rights);

}  // namespace shell
