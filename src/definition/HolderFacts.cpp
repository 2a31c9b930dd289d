#include "HolderFacts.h"

namespace definition {

void askColumns(data::Questions& questions, TableColumns& columns, const QStringList& tables) {
    QStringList names;
    for (const QString& table : tables)
        names.append(data::quoted(table));
    names.removeDuplicates();
    if (!names.isEmpty())
        questions.ask(
            "Select O.[Name], C.[Name], C.length From syscolumns As C inner join sysobjects As O "
            "On(C.[id]=O.[id]) where O.[Name] In (" +
                names.join(u',') + ')',
            [&columns](const data::ResultSet& found) {
                for (const QVariantList& row : found.rows)
                    columns[row[0].toString().toLower()].insert(row[1].toString().toLower(), row[2].toInt());
            });
}

void askFacts(data::Questions& questions, HolderFacts& facts, const QString& table, const QString& month,
              const QStringList& tables) {
    askColumns(questions, facts.columns, tables);
    const QList<Reference>& references = referencesTo(table);
    const auto any = [&](const auto& is) { return std::any_of(references.begin(), references.end(), is); };
    if (any([](const Reference& reference) { return !reference.ofMonth; }))
        questions.ask("Select Max(Codemah) From " + table, [&facts](const data::ResultSet& found) {
            facts.newestMonth = found.rows.value(0).value(0).toString();
        });
    if (any([](const Reference& reference) { return reference.as == HeldAs::LayoutTable; }))
        questions.ask(
            "Select Count(*) From " + table + " Where Codemah<>" + data::quoted(month) + " Group By Codemah",
            [&facts](const data::ResultSet& found) {
                for (const QVariantList& row : found.rows)
                    facts.mostRowsElsewhere = qMax(facts.mostRowsElsewhere, row[0].toInt());
            });
}

}  // namespace definition
