// What a confirmation does to those who refer to the confirmed rows, worked out in full before anything is
// done, so that it can be asked for, refused or told first.
#pragma once

#include "AmountMove.h"
#include "HostContext.h"
#include "ReferenceMove.h"

namespace definition {

// An open page's work copy: of which table, and the copy's own name.
struct OpenCopy {
    QString table;
    QString copy;
};

// The rows that are confirmed.
struct ConfirmedRows {
    QString table;
    QString month;
    QList<ItemCode> items;
    QList<qint64> codesBefore;  // of all the rows as they were, in order
};

class ConfirmPlan {
public:
    // Reads what the plan needs, as it stands before the month's rows are replaced. Part of the
    // transaction that carries it out. A Refusal, which names the row, when a list gets too long.
    ConfirmPlan(data::HostDatabase& db, ConfirmedRows rows, const QList<OpenCopy>& copies);

    // What the operator has to agree to first; empty for nothing.
    const QString& question() const { return m_question; }
    // What he is told afterwards: who still holds the codes of a newer month. Empty for nothing.
    const QString& notice() const { return m_notice; }
    // The rows' codes, in their order.
    QList<qint64> codesNow() const;
    // The places of rows whose layout tables move: before and now, 0 for none.
    QList<std::pair<int, int>> layoutPlaces() const;

    // Once the month's rows have been replaced.
    void carryOut() const;

    // Whether the stored rows or a copy with that name hold what has moved.
    bool touches(const QString& table) const;
    // Gives the values of a row in edit of that table what its stored rows got. Nothing here can fail.
    void followInRow(const QString& table, const QList<data::ColumnInfo>& columns, QVariantList& row) const;

private:
    void findHolders(const QList<OpenCopy>& copies);
    void readColumns();
    bool isNewestMonth() const;
    int rowsElsewhere() const;
    void leave(const Holders& holders);
    void moveLists(const QList<Holders>& lists);
    QString inMonth() const;

    data::HostDatabase* m_db;
    ConfirmedRows m_rows;
    Renumbering m_renumbering;
    TableColumns m_columns;
    QList<Holders> m_holders;
    bool m_newest = true;
    int m_placesElsewhere = 0;
    QStringList m_statements;
    QString m_question, m_notice;
};

}  // namespace definition
