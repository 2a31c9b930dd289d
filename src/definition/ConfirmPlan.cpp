#include "ConfirmPlan.h"

#include "CodeMove.h"
#include "DatabaseHelpers.h"
#include "ShareList.h"

namespace definition {
ConfirmPlan::ConfirmPlan(data::Connection& connection, const Confirmation& confirmation, Counts counts)
    : m_confirmation(confirmation), m_counts(counts) {
    findHolders();
    QStringList tables = m_confirmation.upgrades;
    for (const Holders& holders : m_holders) {
        if (holders.reference->as != HeldAs::LayoutTable)
            tables.append(holders.table);
        if (holders.reference->as == HeldAs::Amounts)
            tables += amountSharers(*holders.reference, m_confirmation.table);
    }
    data::Questions questions;
    m_confirmation.askRows(questions, m_rows);
    askFacts(questions, m_facts, m_confirmation.table, m_confirmation.month, tables);
    questions.send(connection);
    m_renumbering = m_renumberingHere = Renumbering(m_rows.items, m_rows.codesBefore);
    if (m_rows.changedMeanwhile != 0)
        m_renumberingHere = Renumbering(m_rows.itemsHere, m_rows.codesBeforeHere);
    if (m_rows.changedMeanwhile != 0)
        m_questions.append(
            {QStringLiteral("رديف هاي اين ماه پس از باز شدن صفحه تغيير کرده است. جايگزين شود؟"),
             m_rows.changedMeanwhile, true});
    if (!m_renumbering.isEmpty() || !m_renumberingHere.isEmpty()) {
        LostAmounts lost;
        for (const Holders& holders : m_holders)
            if (holders.reference->as == HeldAs::Amounts)
                lost.ask(questions, m_confirmation.table, m_confirmation.month, *holders.reference,
                         m_renumbering, m_facts.columns);
        move(questions);
        questions.send(connection);
        if (const QString question = lost.question(); !question.isEmpty())
            m_questions.append({question});
        if (!m_left.isEmpty())
            m_notice = QStringLiteral(
                           "ماه تازه تري هم ثبت شده است. اينها به ماه خاصي بسته نيستند، با كدهاي ماه تازه تر "
                           "ماندند و با كدهاي تازه اين ماه عوض نشدند: ") +
                       m_left.join(QStringLiteral("، "));
    }
}

std::optional<PlanQuestion> ConfirmPlan::open(const QList<PlanQuestion>& agreed) const {
    for (const PlanQuestion& question : m_questions)
        if (!agreed.contains(question))
            return question;
    return {};
}

QStringList ConfirmPlan::upgrades(qint64 items) const {
    QStringList statements;
    for (const QString& table : m_confirmation.upgrades)
        statements += payItemColumns(table, columnsOf(table), items);
    return statements;
}

QSet<QString> ConfirmPlan::columnsOf(const QString& table) const {
    const QList<QString> names = m_facts.columns.value(table.toLower()).keys();
    return {names.begin(), names.end()};
}

void ConfirmPlan::findHolders() {
    const QString inMonth = " And Codemah=" + data::quoted(m_confirmation.month);
    for (const Reference& reference : referencesTo(m_confirmation.table)) {
        // The rows' own references have followed while they were edited.
        if (sameTable(reference.table, m_confirmation.table))
            continue;
        m_holders.append({&reference, reference.table, reference.ofMonth ? inMonth : QString()});
        for (const OpenCopy& copy : m_confirmation.copies)
            if (sameTable(copy.table, reference.table))
                m_holders.append({&reference, copy.copy, {}, true});
    }
}

bool ConfirmPlan::isNewest() const {
    return m_facts.newestMonth.isEmpty() || m_facts.newestMonth == m_confirmation.month;
}

// What can be moved without further questions, and these.
void ConfirmPlan::move(data::Questions& questions) {
    QList<Holders> lists;
    for (const Holders& holders : m_holders) {
        const Reference& reference = *holders.reference;
        if (reference.as == HeldAs::Amounts)
            moveAmounts(reference);
        else if (!reference.ofMonth && !isNewest())
            leave(questions, holders);
        else if (reference.as == HeldAs::ShareList)
            lists.append(holders);
        else {
            if (m_counts == Counts::All)
                count(questions, holders);
            m_statements += moveStatements(holders, renumberingOf(holders), m_facts.columns);
        }
    }
    askLists(questions, lists);
}

void ConfirmPlan::count(data::Questions& questions, const Holders& holders) {
    QString those;
    if (holders.reference->as == HeldAs::LayoutTable) {
        QStringList tables;
        for (const auto& [before, now] : layoutPlaces())
            tables.append(data::quoted(holders.table + QString::number(before > 0 ? before : now)));
        if (!tables.isEmpty())
            those = "Sysobjects Where Upper(XType)='U' And [Name] In (" + tables.join(u',') + ')';
    } else if (const QString changed = changesRow(holders, renumberingOf(holders), m_facts.columns);
               !changed.isEmpty()) {
        those = holders.table + " Where (" + changed + ')' + holders.condition;
    }
    if (!those.isEmpty())
        questions.ask("Select Count(*) From " + those,
                      [this, title = holders.reference->title](const data::ResultSet& found) {
                          m_followers[title] += found.rows.value(0).value(0).toLongLong();
                      });
}

QStringList ConfirmPlan::followers() const {
    QStringList lines;
    for (const auto [title, number] : m_followers.asKeyValueRange())
        if (number > 0)
            lines.append(title + QStringLiteral(": ") + QString::number(number));
    return lines;
}

void ConfirmPlan::moveAmounts(const Reference& reference) {
    const AmountMove moved = amountMove({reference.table, reference.upgradeName, reference.column},
                                        m_confirmation.month, m_rows.items, columnsOf(reference.table));
    m_newColumns += moved.newColumns;
    m_statements.append(moved.statement);
}

// The rows of a newer month keep those who refer to them; the operator is told who they are.
void ConfirmPlan::leave(data::Questions& questions, const Holders& holders) {
    QString those;
    if (holders.reference->as == HeldAs::LayoutTable) {
        QStringList tables;
        for (const int place : m_renumbering.leftPlaces())
            tables.append(data::quoted(holders.table + QString::number(place)));
        if (!tables.isEmpty())
            those = "Sysobjects Where Upper(XType)='U' And [Name] In (" + tables.join(u',') + ')';
    } else if (const QString changed = holdsChanged(holders, m_renumbering, m_facts.columns);
               !changed.isEmpty()) {
        those = holders.table + " Where " + changed;
    }
    if (!those.isEmpty())
        questions.ask("Select Count(*) From " + those,
                      [this, title = holders.reference->title](const data::ResultSet& found) {
                          if (const qint64 count = found.rows.value(0).value(0).toLongLong(); count > 0)
                              m_left.append(title + QStringLiteral(" (%1)").arg(count));
                      });
}

void ConfirmPlan::askLists(data::Questions& questions, const QList<Holders>& lists) {
    QStringList selects;
    for (int i = 0; i < lists.size(); ++i) {
        const QString& column = lists[i].reference->column;
        if (m_facts.columns.value(lists[i].table.toLower()).contains(column.toLower()))
            selects.append(QStringLiteral("Select %1 As holder, Desk, %2 As list From %3 Where %2<>''%4")
                               .arg(QString::number(i), column, lists[i].table, lists[i].condition));
    }
    if (!selects.isEmpty())
        questions.ask(selects.join(QStringLiteral(" Union All ")),
                      [this, lists](const data::ResultSet& found) { moveLists(lists, found); });
}

// The new lists are worked out here: nothing in the suite's T-SQL takes a text apart.
void ConfirmPlan::moveLists(const QList<Holders>& lists, const data::ResultSet& found) {
    QMap<qint64, QList<std::pair<QString, QString>>> changed;
    for (const QVariantList& row : found.rows) {
        const qint64 place = row[0].toLongLong();
        const Holders& holders = lists[place];
        const QString list = row[2].toString();
        const QString now =
            renumberShares(list, [&](qint64 code) { return renumberingOf(holders).now(code); });
        if (now == list)
            continue;
        const int room = m_facts.columns[holders.table.toLower()].value(holders.reference->column.toLower());
        requireRoom(now, room, holders.reference->title, row[1].toString());
        ++m_followers[holders.reference->title];
        if (const std::pair pair = {data::quoted(list), data::quoted(now)}; !changed[place].contains(pair))
            changed[place].append(pair);
    }
    for (const auto& [place, pairs] : changed.asKeyValueRange())
        m_statements.append(exchangeStatement(lists[place].table, lists[place].reference->column, pairs,
                                              lists[place].condition));
}

QList<qint64> ConfirmPlan::codesNow() const {
    QList<qint64> codes;
    for (const ItemCode& item : m_rows.items)
        codes.append(item.now);
    return codes;
}

QList<std::pair<int, int>> ConfirmPlan::layoutPlaces() const {
    QList<std::pair<int, int>> moves;
    if (!isNewest())
        return moves;
    const qsizetype before = m_rows.codesBefore.size();
    QList<int> gone = m_renumbering.leftPlaces();
    for (const auto [place, from] : m_renumbering.places().asKeyValueRange()) {
        gone.removeOne(from);
        // What stands in a new row's place was left by a row long gone, unless another month has one there.
        const bool left = from == 0 && place > before && place > m_facts.mostRowsElsewhere;
        if (from > 0 || left)
            moves.append({from, place});
    }
    for (const int place : gone)
        moves.append({place, 0});
    return moves;
}

bool ConfirmPlan::touches(const QString& table) const {
    return std::any_of(m_holders.begin(), m_holders.end(),
                       [&](const Holders& holders) { return sameTable(holders.table, table); });
}

void ConfirmPlan::followInRow(const QString& table, const QList<data::ColumnInfo>& columns,
                              QVariantList& row) const {
    for (const Holders& holders : m_holders)
        if (sameTable(holders.table, table) && (holders.reference->ofMonth || isNewest()))
            definition::followInRow(*holders.reference, m_renumberingHere, columns, row);
}

}  // namespace definition
