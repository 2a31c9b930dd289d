#include "ConfirmPlan.h"

#include "CodeMove.h"
#include "DatabaseHelpers.h"
#include "ShareList.h"
#include "SharedAmounts.h"

namespace definition {
namespace {

bool sameTable(const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

}  // namespace

ConfirmPlan::ConfirmPlan(data::HostDatabase& db, ConfirmedRows rows, const QList<OpenCopy>& copies)
    : m_db(&db), m_rows(std::move(rows)), m_renumbering(m_rows.items, m_rows.codesBefore) {
    if (m_renumbering.isEmpty())
        return;
    findHolders(copies);
    readColumns();
    m_newest = isNewestMonth();
    QList<Holders> lists;
    for (const Holders& holders : m_holders) {
        const Reference& reference = *holders.reference;
        if (reference.as == HeldAs::Amounts)
            m_question = lostAmounts(*m_db, m_rows.table, m_rows.month, reference, m_renumbering,
                                     m_columns.value(reference.table.toLower()));
        else if (!reference.ofMonth && !m_newest)
            leave(holders);
        else if (reference.as == HeldAs::LayoutTable)
            m_placesElsewhere = rowsElsewhere();
        else if (reference.as == HeldAs::ShareList)
            lists.append(holders);
        else
            m_statements += moveStatements(holders, m_renumbering, m_columns);
    }
    moveLists(lists);
}

QString ConfirmPlan::inMonth() const {
    return " And Codemah=" + data::quoted(m_rows.month);
}

void ConfirmPlan::findHolders(const QList<OpenCopy>& copies) {
    for (const Reference& reference : referencesTo(m_rows.table)) {
        // The rows' own references have followed while they were edited.
        if (sameTable(reference.table, m_rows.table))
            continue;
        m_holders.append({&reference, reference.table, reference.ofMonth ? inMonth() : QString()});
        for (const OpenCopy& copy : copies)
            if (sameTable(copy.table, reference.table))
                m_holders.append({&reference, copy.copy, {}});
    }
}

void ConfirmPlan::readColumns() {
    QStringList names;
    const auto add = [&](const QString& table) {
        if (const QString name = data::quoted(table); !names.contains(name))
            names.append(name);
    };
    for (const Holders& holders : m_holders)
        add(holders.table);
    data::Query query(m_db->Connection);
    query.setSql(
        "Select O.[Name], C.[Name], C.length From syscolumns As C inner join sysobjects As O "
        "On(C.[id]=O.[id]) where O.[Name] In (" +
        names.join(u',') + ')');
    for (query.open(); !query.eof(); query.next())
        m_columns[query.text(0).toLower()].insert(query.text(1).toLower(),
                                                  static_cast<int>(query.integer(2)));
}

bool ConfirmPlan::isNewestMonth() const {
    const auto ofNoMonth = [](const Holders& holders) { return !holders.reference->ofMonth; };
    if (std::none_of(m_holders.begin(), m_holders.end(), ofNoMonth))
        return true;
    data::Query query(m_db->Connection);
    query.setSql("Select Max(Codemah) From " + m_rows.table);
    query.open();
    return query.text(0) == m_rows.month;
}

// The most rows that another month has.
int ConfirmPlan::rowsElsewhere() const {
    data::Query query(m_db->Connection);
    query.setSql("Select Count(*) From " + m_rows.table + " Where Codemah<>" + data::quoted(m_rows.month) +
                 " Group By Codemah");
    qint64 most = 0;
    for (query.open(); !query.eof(); query.next())
        most = qMax(most, query.integer(0));
    return static_cast<int>(most);
}

// The rows of a newer month keep those who refer to them; the operator is told who they are.
void ConfirmPlan::leave(const Holders& holders) {
    qint64 count = 0;
    if (holders.reference->as == HeldAs::LayoutTable) {
        for (const int place : m_renumbering.leftPlaces())
            count += Is_Object_Exist(*m_db, holders.table + QString::number(place)) ? 1 : 0;
    } else if (const QString changed = holdsChanged(holders, m_renumbering, m_columns); !changed.isEmpty()) {
        data::Query query(m_db->Connection);
        query.setSql("Select Count(*) From " + holders.table + " Where " + changed);
        query.open();
        count = query.integer(0);
    }
    if (count == 0)
        return;
    if (m_notice.isEmpty())
        m_notice = QStringLiteral(
            "ماه تازه تري هم ثبت شده است. اينها به ماه خاصي بسته نيستند، با كدهاي ماه تازه تر ماندند و با "
            "كدهاي "
            "تازه اين ماه عوض نشدند: ");
    else
        m_notice += QStringLiteral("، ");
    m_notice += holders.reference->title + QStringLiteral(" (%1)").arg(count);
}

// The new lists are worked out here: nothing in the suite's T-SQL takes a text apart.
void ConfirmPlan::moveLists(const QList<Holders>& lists) {
    QStringList selects;
    for (int i = 0; i < lists.size(); ++i) {
        const auto& [reference, table, condition] = lists[i];
        if (m_columns.value(table.toLower()).contains(reference->column.toLower()))
            selects.append(QStringLiteral("Select %1 As holder, Desk, %2 As list From %3 Where %2<>''%4")
                               .arg(QString::number(i), reference->column, table, condition));
    }
    if (selects.isEmpty())
        return;
    data::Query query(m_db->Connection);
    query.setSql(selects.join(QStringLiteral(" Union All ")));
    QHash<qint64, QList<std::pair<QString, QString>>> changed;
    for (query.open(); !query.eof(); query.next()) {
        const Holders& holders = lists[query.integer(0)];
        const QString list = query.text(2);
        const QString now = renumberShares(list, [this](qint64 code) { return m_renumbering.now(code); });
        if (now == list)
            continue;
        const int room = m_columns[holders.table.toLower()].value(holders.reference->column.toLower());
        requireRoom(now, room, holders.reference->title, query.text(1));
        auto& pairs = changed[query.integer(0)];
        if (const std::pair pair = {data::quoted(list), data::quoted(now)}; !pairs.contains(pair))
            pairs.append(pair);
    }
    for (int i = 0; i < lists.size(); ++i)
        if (changed.contains(i))
            m_statements.append(exchangeStatement(lists[i].table, lists[i].reference->column, changed[i],
                                                  lists[i].condition));
}

QList<qint64> ConfirmPlan::codesNow() const {
    QList<qint64> codes;
    for (const ItemCode& item : m_rows.items)
        codes.append(item.now);
    return codes;
}

QList<std::pair<int, int>> ConfirmPlan::layoutPlaces() const {
    QList<std::pair<int, int>> moves;
    if (!m_newest)
        return moves;
    const qsizetype before = m_rows.codesBefore.size();
    QList<int> gone = m_renumbering.leftPlaces();
    for (const auto [place, from] : m_renumbering.places().asKeyValueRange()) {
        gone.removeOne(from);
        // What stands in a new row's place was left by a row long gone, unless another month has one there.
        const bool left = from == 0 && place > before && place > m_placesElsewhere;
        if (from > 0 || left)
            moves.append({from, place});
    }
    for (const int place : gone)
        moves.append({place, 0});
    return moves;
}

void ConfirmPlan::carryOut() const {
    for (const Holders& holders : m_holders)
        if (const Reference& reference = *holders.reference; reference.as == HeldAs::Amounts)
            moveAmounts(*m_db, {reference.table, reference.upgradeName, reference.column}, m_rows.month,
                        m_rows.items);
    Exec_Sql(*m_db, m_statements.join(u'\n'));
}

bool ConfirmPlan::touches(const QString& table) const {
    return std::any_of(m_holders.begin(), m_holders.end(),
                       [&](const Holders& holders) { return sameTable(holders.table, table); });
}

void ConfirmPlan::followInRow(const QString& table, const QList<data::ColumnInfo>& columns,
                              QVariantList& row) const {
    for (const Holders& holders : m_holders)
        if (sameTable(holders.table, table) && (holders.reference->ofMonth || m_newest))
            definition::followInRow(*holders.reference, m_renumbering, columns, row);
}

}  // namespace definition
