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

NamesAtHand::NamesAtHand(data::HostDatabase& db, const PageDefinition& page, const data::Dataset& rows)
    : m_page(page) {
    db.Connection->stream(
        rows.selection({page.fields.name}), [](const QList<data::ColumnInfo>&) {},
        [this](const data::RowView& row) {
            ++m_rows[Bare_Name(QString::fromUtf8(row.text(0)))];
            return true;
        });
}

bool NamesAtHand::isRepeated(const data::Dataset& rows, const QString& name) const {
    const QString wanted = Bare_Name(name);
    const bool itself =
        rows.state() == data::Dataset::State::Edit && Bare_Name(storedName(m_page, rows)) == wanted;
    return m_rows.value(wanted) > (itself ? 1 : 0);
}

void NamesAtHand::take(const data::Dataset& rows, const QString& name) {
    if (rows.state() == data::Dataset::State::Edit)
        --m_rows[Bare_Name(storedName(m_page, rows))];
    ++m_rows[Bare_Name(name)];
}

}  // namespace definition
