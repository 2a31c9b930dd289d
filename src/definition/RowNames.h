// The rows of a page are told apart by their names, blanks, kashida and look-alike letters apart.
#pragma once

#include <QHash>
#include "Dataset.h"
#include "HostContext.h"

#include "Dataset.h"
#include "HostContext.h"
#include "PageDefinition.h"

namespace definition {

// The current row's name as it is stored; empty for a new row.
QString storedName(const PageDefinition& page, const data::Dataset& rows);

// Whether another row has the name, or one that looks the same.
bool isNameRepeated(data::HostDatabase& db, const PageDefinition& page, const data::Dataset& rows,
                    const QString& name);

// The names of all rows, read once, for many rows in a row.
class NamesAtHand {
public:
    NamesAtHand(data::HostDatabase& db, const PageDefinition& page, const data::Dataset& rows);

    // The same for the current row; then it has that name.
    bool isRepeated(const data::Dataset& rows, const QString& name) const;
    void take(const data::Dataset& rows, const QString& name);

private:
    const PageDefinition& m_page;
    QHash<QString, int> m_rows;  // how many have it
};

}  // namespace definition
