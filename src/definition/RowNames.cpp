#include "RowNames.h"

#include "Connection.h"
#include "DatabaseHelpers.h"
#include "TextHelpers.h"

namespace definition {

QString storedName(const PageDefinition& page, const data::Dataset& rows) {
    return data::valueText(rows.originalValue(rows.columnIndex(page.fields.name)));
}

bool isNameRepeated(data::HostDatabase& db, const PageDefinition& page, const data::Dataset& rows,
                    const QString& name) {
    const QString stored = storedName(page, rows);
    const QString wanted = Bare_Name(name);
    // The company's procedure knows neither the row itself nor months, and each month has the same names
    // again.
    if (!page.monthRows && wanted != Bare_Name(stored) &&
        Is_Name_Repeated(db, rows.tableName(), page.fields.name, name))
        return true;
    bool itself = rows.state() == data::Dataset::State::Edit;  // is yet to come
    bool repeated = false;
    db.Connection->stream(
        rows.selection({page.fields.name}), [](const QList<data::ColumnInfo>&) {},
        [&](const data::RowView& row) {
            const QString other = QString::fromUtf8(row.text(0));
            if (itself && other == stored)
                itself = false;
            else
                repeated = Bare_Name(other) == wanted;
            return !repeated;
        });
    return repeated;
}

}  // namespace definition
