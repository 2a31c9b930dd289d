// What a confirmation does to those who refer to the confirmed rows, worked out in full before anything is
// done, so that it can be asked for, refused or told first.
#pragma once

#include "AmountMove.h"
#include "HolderFacts.h"
#include "SharedAmounts.h"

namespace definition {

// An open page's work copy: of which table, and the copy's own name.
struct OpenCopy {
    QString table;
    QString copy;
};

// The rows that are confirmed.
struct ConfirmedRows {
    QList<ItemCode> items;
    QList<qint64> codesBefore;  // of all the rows as they were, in order
    // Tells the month's stored rows apart from those that the page began with; 0 where they are these. Others
    // have confirmed then: what is stored knows the rows as they are stored now, the copies of this program
    // still know them as the page began.
    size_t changedMeanwhile = 0;
    QList<ItemCode> itemsHere = {};
    QList<qint64> codesBeforeHere = {};
};

// What the operator has to agree to first. Agreed to for what it is about, and for nothing else.
struct PlanQuestion {
    QString text;
    size_t about = 0;
    bool isOfOthers = false;  // others have changed the rows, which a list of the differences shows

    bool operator==(const PlanQuestion& other) const = default;
};

// What is confirmed.
struct Confirmation {
    QString table;
    QString month;
    // Asks for the rows, which are there until they are answered.
    std::function<void(data::Questions&, ConfirmedRows&)> askRows;
    QList<OpenCopy> copies;
    // Tables that get their columns for salary items with it, by the names that payItemColumns knows.
    QStringList upgrades = {};
};

class ConfirmPlan {
public:
    // Reads what the plan needs in two texts at most, as it stands before the month's rows are replaced. Part
    // of the transaction that carries it out. A Refusal, which names the row, when a list gets too long.
    enum class Counts { None, All };  // whether it counts who follows, for those who only look
    ConfirmPlan(data::Connection& connection, const Confirmation& confirmation, Counts counts = Counts::None);

    const QList<PlanQuestion>& questions() const { return m_questions; }
    // The first that is not among those agreed to; none where all are.
    std::optional<PlanQuestion> open(const QList<PlanQuestion>& agreed) const;
    // What he is told afterwards: who still holds the codes of a newer month. Empty for nothing.
    const QString& notice() const { return m_notice; }
    // Who follows the rows besides the amounts, and how many, as lines.
    QStringList followers() const;
    // The rows as they are, in their order, and the codes of those that there were.
    const QList<ItemCode>& items() const { return m_rows.items; }
    const QList<qint64>& codesBefore() const { return m_rows.codesBefore; }
    // The code that the row has which had this one; 0 for none.
    qint64 codeNow(qint64 before) const { return m_renumbering.now(before); }
    // The columns of a table that holds something, in lower case.
    QSet<QString> columnsOf(const QString& table) const;
    // The rows' codes, in their order.
    QList<qint64> codesNow() const;
    // The places of rows whose layout tables move: before and now, 0 for none.
    QList<std::pair<int, int>> layoutPlaces() const;

    // The statements that give tables new columns, to be sent before the others and apart from them.
    const QStringList& newColumns() const { return m_newColumns; }
    // Those that make what holds the rows follow them, for when the month's rows have been replaced.
    const QStringList& statements() const { return m_statements; }

    // Those that give the tables of the confirmation's upgrades what they lack for that many salary items.
    QStringList upgrades(qint64 items) const;

    // Whether the stored rows or a copy with that name hold what has moved.
    bool touches(const QString& table) const;
    // Gives the values of a row in edit of that table what its stored rows got. Nothing here can fail.
    void followInRow(const QString& table, const QList<data::ColumnInfo>& columns, QVariantList& row) const;

private:
    void findHolders();
    void count(data::Questions& questions, const Holders& holders);
    void moveAmounts(const Reference& reference);
    void move(data::Questions& questions);
    void leave(data::Questions& questions, const Holders& holders);
    void askLists(data::Questions& questions, const QList<Holders>& lists);
    void moveLists(const QList<Holders>& lists, const data::ResultSet& found);
    bool isNewest() const;

    Confirmation m_confirmation;
    ConfirmedRows m_rows;
    const Renumbering& renumberingOf(const Holders& holders) const {
        return holders.isCopy ? m_renumberingHere : m_renumbering;
    }

    Renumbering m_renumbering;
    Renumbering m_renumberingHere;  // for the copies of this program
    HolderFacts m_facts;
    QList<Holders> m_holders;
    QStringList m_newColumns, m_statements;
    Counts m_counts;
    QMap<QString, qint64> m_followers;  // by what operators call them
    QStringList m_left;                 // who stays with the codes of a newer month, and how many
    QList<PlanQuestion> m_questions;
    QString m_notice;
};

}  // namespace definition
