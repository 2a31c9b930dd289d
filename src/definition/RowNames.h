// The rows of a page are told apart by their names, blanks, kashida and look-alike letters apart.
#pragma once

#include "Dataset.h"
#include "HostContext.h"
#include "PageDefinition.h"

namespace definition {

// The current row's name as it is stored; empty for a new row.
QString storedName(const PageDefinition& page, const data::Dataset& rows);

// Whether another row has the name, or one that looks the same.
bool isNameRepeated(data::HostDatabase& db, const PageDefinition& page, const data::Dataset& rows,
                    const QString& name);

}  // namespace definition
