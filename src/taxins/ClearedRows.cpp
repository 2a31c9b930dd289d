#include "ClearedRows.h"

#include "DatabaseHelpers.h"
#include "Dataset.h"

namespace taxins {

data::ResultSet ClearedRows::stored(data::HostDatabase& db) const {
    return db.Connection->execute("select * from " + m_table);
}

void ClearedRows::insert(data::HostDatabase& db, const data::ResultSet& rows) const {
    QStringList columns;
    for (const data::ColumnInfo& column : rows.columns)
        columns.append(data::bracketed(column.name));
    for (const QVariantList& row : rows.rows) {
        QStringList values;
        for (const QVariant& value : row)
            values.append(data::literal(value));
        Exec_Sql(
            db, "insert into " + m_table + " (" + columns.join(u',') + ") values(" + values.join(u',') + ")");
    }
}

void ClearedRows::clear(data::HostDatabase& db) {
    const data::ResultSet rows = stored(db);
    Exec_Sql(db, "delete from " + m_table);
    m_cleared.append(rows);
}

void ClearedRows::restore(data::HostDatabase& db) {
    const data::ResultSet since = stored(db);
    if (!since.rows.isEmpty())
        Exec_Sql(db, "delete from " + m_table);
    insert(db, m_cleared.last());
    insert(db, since);
    m_cleared.removeLast();
}

}  // namespace taxins
