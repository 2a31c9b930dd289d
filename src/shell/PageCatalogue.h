// Which page stands where, and who may use it.
#pragma once

#include "FormVariables.h"
#include "PageDefinition.h"

namespace shell {

struct PagePlace {
    const char* sheet;  // the tab sheet that shows the page
    const char* panel;  // the panel of the sheet that holds it; empty: the sheet itself
    const char* combo;  // the combo that chooses it; empty on a tab with one page
    int comboIndex;     // -1: every item of the combo shows this page
    const char* right;  // rights entry that enables the panel; empty: as the sheet
    definition::DefinitionPage** variable;
    // Makes the page; null while it is not there yet.
    definition::DefinitionPage* (*create)(BaseWindow& window, definition::DefinitionPage** variable,
                                          QWidget* parent);
};

// Every page of the window.
const QList<PagePlace>& pageCatalogue();

// The form variables in the order in which closing destroys them.
const QList<definition::DefinitionPage**>& closingOrder();

// Whether the rights text enables the tab sheet.
bool sheetEnabled(const QString& sheet, const QString& rights);

}  // namespace shell
