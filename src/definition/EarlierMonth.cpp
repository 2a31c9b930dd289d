#include "EarlierMonth.h"

#include "DefinitionPage.h"
#include "HolderFacts.h"
#include "Query.h"
#include "ShareList.h"
#include "TextHelpers.h"

namespace definition {
namespace {

const QString kColumnPrefix = QStringLiteral("code_");

}  // namespace

EarlierMonth::EarlierMonth(DefinitionPage& page) : m_page(page) {
    const QString table = page.definition().table;
    const QString earlier =
        "(Select Max(Codemah) From " + table + " Where Codemah<" + data::quoted(page.month()) + ')';
    data::Questions questions;
    questions.ask(
        "Select * From " + table + " Where Codemah=" + earlier + " Order By " + page.definition().fields.code,
        [this](const data::ResultSet& found) { m_rows = found; });
    for (const ReferredRows& referred : referredRows()) {
        for (const Reference& reference : referred.references)
            if (sameTable(reference.table, table) && reference.as != HeldAs::Prefix)
                m_spoken.append({&reference, referred.table});
        if (m_spoken.isEmpty() || m_spoken.last().table != referred.table)
            continue;
        Items& items = m_items[referred.table];
        const QString names = "Select Code_field, Desk From " + referred.table + " Where Codemah=";
        questions.ask(names + earlier + " Order By Code_field", [&items](const data::ResultSet& found) {
            for (const QVariantList& row : found.rows)
                items.there.append({row[0].toLongLong(), data::valueText(row[1]).trimmed()});
        });
        const bool own = sameTable(referred.table, table);
        questions.ask(own ? "Select Code_field, Desk From " + page.rows().tableName() + " Order By Code_field"
                          : names + data::quoted(page.month()) + " Order By Code_field",
                      [&items](const data::ResultSet& found) {
                          for (const QVariantList& row : found.rows) {
                              const QString name = Bare_Name(data::valueText(row[1]));
                              items.here.insert(name, row[0].toLongLong());
                              items.placesHere.insert(name, static_cast<int>(items.placesHere.size()) + 1);
                          }
                      });
    }
    QStringList tables;
    for (const Reference& reference : referencesTo(table))
        if (reference.as == HeldAs::Amounts)
            tables.append(reference.table);
    askColumns(questions, m_columns, tables);
    questions.send(*page.db().Connection);
    m_code = m_rows.indexOf(page.definition().fields.code);
    m_name = m_rows.indexOf(page.definition().fields.name);
    // All of them come into an empty copy.
    if (page.rows().isEmpty())
        for (const QVariantList& row : m_rows.rows)
            addItem(nameOf(row), codeOf(row));
}

QString EarlierMonth::nameOf(const QVariantList& row) const {
    return data::valueText(row[m_name]).trimmed();
}

void EarlierMonth::addItem(const QString& name, qint64 code) {
    if (const auto own = m_items.find(m_page.definition().table); own != m_items.end())
        own->here.insert(Bare_Name(name), code);
}

QHash<QString, QVariant> EarlierMonth::valuesHere(const QVariantList& row, QStringList* leftOut) const {
    QHash<QString, QVariant> values;
    for (qsizetype column = 0; column < m_rows.columns.size(); ++column)
        values.insert(m_rows.columns[column].name.toLower(), row[column]);
    for (const Spoken& spoken : m_spoken)
        follow(spoken, values, leftOut);
    return values;
}

void EarlierMonth::follow(const Spoken& spoken, QHash<QString, QVariant>& values,
                          QStringList* leftOut) const {
    const Items& items = *m_items.find(spoken.table);
    const auto now = [&](qint64 code) -> qint64 {
        for (const auto& [there, name] : items.there)
            if (there == code) {
                const qint64 here = items.here.value(Bare_Name(name));
                if (here == 0 && leftOut)
                    leftOut->append(QStringLiteral("«%1»").arg(name));
                return here;
            }
        if (leftOut)
            leftOut->append(kColumnPrefix + QString::number(code));
        return 0;
    };
    const Reference& reference = *spoken.reference;
    QVariant& held = values[reference.column.toLower()];
    if (reference.as == HeldAs::Place) {
        followMarks(reference, items, values, leftOut);
    } else if (reference.as == HeldAs::ShareList) {
        if (held.isValid())
            held = renumberShares(held.toString(), now);
    } else if (const QString text = data::valueText(held).trimmed();
               reference.as == HeldAs::ColumnName && text.startsWith(kColumnPrefix, Qt::CaseInsensitive)) {
        const qint64 code = now(text.mid(kColumnPrefix.size()).toLongLong());
        held = code != 0 ? QVariant(kColumnPrefix + QString::number(code)) : QVariant();
        if (code == 0)
            values[reference.alongside.toLower()] = QVariant();
    }
}

void EarlierMonth::followMarks(const Reference& reference, const Items& items,
                               QHash<QString, QVariant>& values, QStringList* leftOut) const {
    QHash<QString, QVariant> marks;
    for (int place = 1; place <= items.there.size(); ++place) {
        const QVariant mark = values.value(reference.column + QString::number(place));
        if (data::valueText(mark).trimmed().isEmpty())
            continue;
        const QString name = items.there[place - 1].second;
        const int here = items.placesHere.value(Bare_Name(name));
        const QString column = reference.column + QString::number(here);
        if (here > 0 && m_page.rows().columnIndex(column) >= 0)
            marks.insert(column, mark);
        else if (leftOut)
            leftOut->append(QStringLiteral("«%1»").arg(name));
    }
    for (auto value = values.begin(); value != values.end(); ++value)
        if (value.key().startsWith(reference.column, Qt::CaseInsensitive))
            *value = marks.value(value.key());
    for (auto mark = marks.cbegin(); mark != marks.cend(); ++mark)
        values.insert(mark.key(), mark.value());
}

bool EarlierMonth::hasHolders(qint64 code) const {
    for (const Reference& reference : referencesTo(m_page.definition().table))
        if (reference.as == HeldAs::Amounts)
            return m_columns.value(reference.table.toLower())
                .contains((reference.column + QString::number(code)).toLower());
    return true;
}

}  // namespace definition
