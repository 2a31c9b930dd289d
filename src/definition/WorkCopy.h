// A private table of the company's database in which a page's edits live until they are confirmed.
#pragma once

#include "HostContext.h"

namespace definition {

// A name for a new work table that no table has yet: the prefix, `mark`, and the time of day. Asks the
// server, and takes a later time when the name is taken.
QString freeTableName(data::HostDatabase& db, const data::HostContext& context, const QString& mark);

class WorkCopy {
public:
    WorkCopy() = default;
    WorkCopy(const WorkCopy&) = delete;
    WorkCopy& operator=(const WorkCopy&) = delete;

    const QString& name() const { return m_name; }
    bool exists() const { return m_exists; }

    // Makes the table with the rows of `source`, a FROM clause with its WHERE. It is this object's to drop
    // from then on.
    void create(data::HostDatabase& db, const QString& name, const QString& source);
    // Drops it if it is there.
    void drop(data::HostDatabase& db);

private:
    QString m_name;
    bool m_exists = false;
};

}  // namespace definition
