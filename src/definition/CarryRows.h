// Brings rows of an earlier month into a page's work copy: all of them into an empty one, else those that the
// operator marks. What they say of salary items and benefits is said of this month's, which are found by
// name.
#pragma once

namespace definition {

class DefinitionPage;

void carryRows(DefinitionPage& page);

}  // namespace definition
