#include "SharedAmounts.h"

#include <algorithm>

#include "DatabaseHelpers.h"

namespace definition {
namespace {

bool sameTable(const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

// Who else has amounts in that table.
QList<ReferredRows> sharers(const Reference& amounts, const QString& table) {
    QList<ReferredRows> others;
    for (const ReferredRows& rows : referredRows())
        for (const Reference& reference : rows.references)
            if (reference.as == HeldAs::Amounts && sameTable(reference.table, amounts.table) &&
                !sameTable(rows.table, table))
                others.append(rows);
    return others;
}

// The rows with that code on the pages that share the column.
QString owners(data::HostDatabase& db, const QList<ReferredRows>& others, qint64 code,
               const QString& inMonth) {
    QStringList names;
    for (const ReferredRows& rows : others) {
        if (!Is_Object_Exist(db, rows.table))
            continue;
        data::Query query(db.Connection);
        query.setSql("Select Desk From " + rows.table + " Where Code_field=" + QString::number(code) +
                     " And " + inMonth);
        for (query.open(); !query.eof(); query.next())
            names.append(QStringLiteral("«%1» در %2").arg(query.text(0).trimmed(), rows.title));
    }
    return names.join(QStringLiteral(" و "));
}

}  // namespace

QString lostAmounts(data::HostDatabase& db, const QString& table, const QString& month,
                    const Reference& amounts, const Renumbering& renumbering,
                    const QHash<QString, int>& columns) {
    const QList<ReferredRows> others = sharers(amounts, table);
    const QString inMonth = "Codemah=" + data::quoted(month);
    const QSet<qint64> taken = renumbering.fresh() + renumbering.taken();
    QList<qint64> codes(taken.begin(), taken.end());
    std::sort(codes.begin(), codes.end());
    const auto column = [&](qint64 code) { return amounts.column + QString::number(code); };
    codes.removeIf([&](qint64 code) { return !columns.contains(column(code)); });
    if (others.isEmpty() || codes.isEmpty())
        return {};
    QStringList counts;
    for (const qint64 code : codes)
        counts.append("Sum(Case When " + column(code) + "<>0 Then 1 Else 0 End)");
    const data::ResultSet found = db.Connection->execute("Select " + counts.join(u',') + " From " +
                                                         amounts.table + " Where " + inMonth);
    QStringList lost;
    for (int i = 0; i < codes.size(); ++i) {
        const qint64 employees = found.rows.value(0).value(i).toLongLong();
        if (employees == 0)
            continue;
        const QString named = owners(db, others, codes[i], inMonth);
        lost.append(QStringLiteral("%1 (%2 كارمند%3)")
                        .arg(column(codes[i]), QString::number(employees),
                             named.isEmpty() ? QString() : QStringLiteral("، ستون ") + named));
    }
    if (lost.isEmpty())
        return {};
    return QStringLiteral(
               "مبلغ كاركنان در ستون هايي كه رديفي از اين صفحه نداشت با تاييد از ميان مي رود: %1. آيا تاييد "
               "شود؟")
        .arg(lost.join(QStringLiteral("؛ ")));
}

}  // namespace definition
