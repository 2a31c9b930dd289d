// Who uses a row: employees with an amount or its code, records, lists and marks that name it, layouts.
#pragma once

namespace definition {

class DefinitionPage;

// Whether anything is declared to refer to the page's rows.
bool hasUsage(const DefinitionPage& page);

// Lists those who use the current row, as it is stored, in a window.
void showUsage(DefinitionPage& page);

// Says where they can be seen, after a deletion that they keep from happening.
void adviseUsage(DefinitionPage& page);

}  // namespace definition
