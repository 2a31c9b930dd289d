// Filling the tax authority's lists.
#include "DatabaseHelpers.h"
#include "Errors.h"
#include "TaxLists.h"

namespace taxins {
namespace {

// One question for all lists.
QString countQuery() {
    constexpr int longestName = 18;
    QString query = QStringLiteral("   select                                                     ");
    QString separator = QStringLiteral("  ");
    for (const TaxList& list : taxLists()) {
        query += separator + "(select Count(Code_Field) from " + list.table.leftJustified(longestName) +
                 ") As " + list.count + u' ';
        separator = QStringLiteral(", ");
    }
    return query;
}

// The text of these statements is fixed, its two irregularities included.
QString insertion(const TaxList& list) {
    const bool degrees = list.table == QLatin1String("J_tMadrak");
    const bool insuranceKinds = list.table == QLatin1String("J_BimehType");
    QString batch;
    for (const TaxCode& row : list.rows)
        batch += "Insert Into " + (degrees ? list.table.toLower() : list.table) +
                 "(Code_Field, Desk) Values(" + QString::number(row.code) +
                 (insuranceKinds && batch.isEmpty() ? "," : ", ") + data::quoted(row.title) + ") ";
    return batch;
}

bool holdsPublished(data::HostDatabase& db, const TaxList& list) {
    QList<std::pair<int, QString>> held;
    for (const QVariantList& row : db.Connection->execute("select Code_Field, Desk from " + list.table).rows)
        held.append({row[0].toInt(), row[1].toString().trimmed()});
    return std::all_of(list.rows.begin(), list.rows.end(), [&](const TaxCode& row) {
        return held.contains(std::pair(row.code, row.title.trimmed()));
    });
}

bool wantsRefill(data::HostDatabase& db, const TaxList& list, int count) {
    switch (list.refill) {
        case Refill::WhenEmpty:
            return count == 0;
        case Refill::WhenEmptyOrFormer:
            return count == 0 || (count == list.formerRows && !(list.keepsAdded && holdsPublished(db, list)));
        case Refill::UnlessComplete:
            return count != list.rows.size();
    }
    return false;
}

int countOf(data::HostDatabase& db, const TaxList& list) {
    return db.Connection->execute("select Count(Code_Field) from " + list.table)
        .rows.value(0)
        .value(0)
        .toInt();
}

void refill(data::HostDatabase& db, const TaxList& list, data::Dataset& shown) {
    const auto change = [&] {
        if (list.refill != Refill::WhenEmpty)
            Exec_Sql(db, " delete From " + list.table + u' ');
        Exec_Sql(db, insertion(list));
    };
    const bool isShown = shown.active() && shown.tableName().compare(list.table, Qt::CaseInsensitive) == 0;
    if (isShown)
        return shown.transact(change, data::Dataset::After::FirstRow);
    data::Transaction transaction(*db.Connection);
    change();
    transaction.commit();
}

}  // namespace

void seedTaxLists(data::HostDatabase& db, data::Dataset& shown) {
    std::exception_ptr refused;
    const auto attempt = [&](const std::function<void()>& step) {
        try {
            step();
        } catch (const data::TextException&) {
            if (!refused)
                refused = std::current_exception();
        }
    };
    QVariantList counts;
    attempt([&] { counts = db.Connection->execute(countQuery()).rows.value(0); });
    for (qsizetype i = 0; i < taxLists().size(); ++i) {
        const TaxList& list = taxLists()[i];
        attempt([&] {
            // One that is missing fails the question about all.
            const int count = counts.isEmpty() ? countOf(db, list) : counts.value(i).toInt();
            if (wantsRefill(db, list, count))
                refill(db, list, shown);
        });
    }
    if (refused)
        std::rethrow_exception(refused);
}

}  // namespace taxins
