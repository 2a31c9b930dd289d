// The rows of a table that was emptied, kept so that they can come back.
#pragma once

#include "Connection.h"
#include "HostContext.h"

namespace taxins {

class ClearedRows {
public:
    explicit ClearedRows(QString table) : m_table(std::move(table)) {}

    bool isEmpty() const { return m_cleared.isEmpty(); }
    // Deletes all rows; in the caller's transaction, as is the next. To be called on a copy, which takes
    // this object's place when the transaction has succeeded.
    void clear(data::HostDatabase& db);
    // Brings back what was cleared last; rows that were stored since stand behind it.
    void restore(data::HostDatabase& db);

private:
    data::ResultSet stored(data::HostDatabase& db) const;
    void insert(data::HostDatabase& db, const data::ResultSet& rows) const;

    QString m_table;
    QList<data::ResultSet> m_cleared;
};

}  // namespace taxins
