#include "SharedAmounts.h"

namespace definition {
namespace {

QList<ReferredRows> sharers(const Reference& amounts, const QString& table) {
    QList<ReferredRows> others;
    for (const ReferredRows& rows : referredRows())
        for (const Reference& reference : rows.references)
            if (reference.as == HeldAs::Amounts && sameTable(reference.table, amounts.table) &&
                !sameTable(rows.table, table))
                others.append(rows);
    return others;
}

}  // namespace

QStringList amountSharers(const Reference& amounts, const QString& table) {
    QStringList tables;
    for (const ReferredRows& rows : sharers(amounts, table))
        tables.append(rows.table);
    return tables;
}

void LostAmounts::ask(data::Questions& questions, const QString& table, const QString& month,
                      const Reference& amounts, const Renumbering& renumbering, const TableColumns& columns) {
    const QList<ReferredRows> others = sharers(amounts, table);
    const QHash<QString, int> known = columns.value(amounts.table.toLower());
    for (const qint64 code : renumbering.fresh() + renumbering.taken())
        if (const QString column = amounts.column + QString::number(code); known.contains(column))
            m_taken[code].column = column;
    if (others.isEmpty() || m_taken.isEmpty())
        return;
    QStringList counts, codes;
    for (const auto [code, taken] : m_taken.asKeyValueRange()) {
        counts.append("Sum(Case When " + taken.column + "<>0 Then 1 Else 0 End)");
        codes.append(QString::number(code));
    }
    const QString inMonth = "Codemah=" + data::quoted(month);
    questions.ask("Select " + counts.join(u',') + " From " + amounts.table + " Where " + inMonth,
                  [this](const data::ResultSet& found) {
                      int place = 0;
                      for (Taken& taken : m_taken)
                          taken.employees = found.rows.value(0).value(place++).toLongLong();
                  });
    for (const ReferredRows& rows : others)
        if (columns.contains(rows.table.toLower()))
            questions.ask("Select Code_field, Desk From " + rows.table + " Where Code_field In (" +
                              codes.join(u',') + ") And " + inMonth,
                          [this, title = rows.title](const data::ResultSet& found) {
                              for (const QVariantList& row : found.rows)
                                  m_taken[row[0].toLongLong()].owners.append(
                                      QStringLiteral("«%1» در %2").arg(row[1].toString().trimmed(), title));
                          });
}

QString LostAmounts::question() const {
    QStringList lost;
    for (const Taken& taken : m_taken)
        if (taken.employees > 0)
            lost.append(QStringLiteral("%1 (%2 كارمند%3)")
                            .arg(taken.column, QString::number(taken.employees),
                                 taken.owners.isEmpty()
                                     ? QString()
                                     : QStringLiteral("، ستون ") + taken.owners.join(QStringLiteral(" و "))));
    if (lost.isEmpty())
        return {};
    return QStringLiteral(
               "مبلغ كاركنان در ستون هايي كه رديفي از اين صفحه نداشت با تاييد از ميان مي رود: %1. آيا تاييد "
               "شود؟")
        .arg(lost.join(QStringLiteral("؛ ")));
}

}  // namespace definition
