// Lists of shares that are made of the page's own rows follow these while they are edited.
#pragma once

#include "Dataset.h"
#include "PageDefinition.h"
#include "Renumbering.h"

namespace definition {

class OwnLists {
public:
    OwnLists(const PageDefinition& page, data::Dataset& rows) : m_page(page), m_rows(rows) {}

    // What the codes will be once the current row is gone.
    Renumbering withoutCurrentRow() const;
    // Renumbers the lists in all rows. A Refusal that names the row when a list gets too long.
    void renumber(const std::function<qint64(qint64)>& now);
    // Takes the current row's code, if it is new, out of the lists that still name it from before: no row
    // had it.
    void freeNewCode();

private:
    qint64 codeAt(int row) const;

    const PageDefinition& m_page;
    data::Dataset& m_rows;
};

}  // namespace definition
