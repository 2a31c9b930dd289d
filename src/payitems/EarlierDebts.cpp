#include "EarlierDebts.h"

#include "CodePage.h"
#include "Errors.h"
#include "Query.h"
#include "TextHelpers.h"

namespace payitems {

EarlierDebts::EarlierDebts() {
    beforeInsert = beforeEdit = beforeDelete = [] { throw data::SilentAbort(); };
}

void EarlierDebts::read(data::HostDatabase& db, const QString& month) {
    close();
    setConnection(db.Connection);
    setTableName(QStringLiteral("paykar"));
    setFilter("codemah=" + data::quoted(month) + " and kasry=" + data::quoted(QString(data::kMark)));
    setIndexFieldNames(QStringLiteral("Code_field"));
    open();
}

Debt EarlierDebts::at(int row) const {
    return {data::valueText(valueAt(row, columnIndex(QStringLiteral("Desk")))).trimmed(),
            "code_" + data::valueText(valueAt(row, columnIndex(QStringLiteral("Code_field")))).trimmed()};
}

std::optional<Debt> EarlierDebts::named(const QString& name, const QString& column) const {
    std::optional<Debt> found;
    for (int row = 0; row < recordCount(); ++row) {
        const Debt debt = at(row);
        if (Strip_Blanks(debt.name) == Strip_Blanks(name) && (!found || debt.column == column))
            found = debt;
    }
    return found;
}

}  // namespace payitems
