// A private table of the company's database, made of the month's rows, in which a page's edits live until
// they are confirmed as a whole.
#pragma once

#include "ConfirmPlan.h"
#include "CopiedRows.h"
#include "Dataset.h"
#include "PageDefinition.h"
#include "SuiteHost.h"

namespace definition {

// A name for a new work table that no table has yet: the prefix, `mark`, and the time of day. Asks the
// server, and takes a later time when the name is taken.
QString freeTableName(const SuiteHost& host, const QString& mark);

class WorkCopy {
public:
    explicit WorkCopy(const PageDefinition& page) : m_page(page) {}
    WorkCopy(const WorkCopy&) = delete;
    WorkCopy& operator=(const WorkCopy&) = delete;

    const QString& name() const { return m_name; }
    bool exists() const { return m_exists; }

    // Makes the table with the month's rows, all or nothing. It is this object's to drop from then on.
    void make(const SuiteHost& host, const QString& month);
    // Drops it if it is there.
    void drop(data::HostDatabase& db);
    // Gives it those of the table's columns that it lacks. How many it has then.
    qsizetype complete(data::HostDatabase& db, const QList<data::ColumnInfo>& tableColumns);

    // `rows` shows the copy as it was just made.
    void remember(const data::Dataset& rows);
    // The stored row that the current one is; none for a new one.
    CopiedRow current(const data::Dataset& rows) const;
    // Whether a row had the code when the copy was made or last confirmed.
    bool wasThere(qint64 code) const { return m_copied.codes().contains(code); }
    // The row at that place has been brought, with the code under which something is stored; 0 for none.
    void carried(int row, qint64 codeBefore) {
        if (codeBefore != 0)
            m_copied.adopt(row, codeBefore);
    }
    // What it knows of the rows outside of them; given back where the rows are.
    const CopiedRows& copied() const { return m_copied; }
    void recall(const CopiedRows& copied) { m_copied = copied; }
    // The row is deleted.
    void forget(const CopiedRow& row) { m_copied.remove(row); }

    // Asks for the rows as they are now, each with what it was when the copy was made or last confirmed, for
    // what replacement() has to know, and whether the month's stored rows are still those of then.
    void askRows(data::Questions& questions, const QString& month, ConfirmedRows& rows);
    // The statements that put them in the place of the month's stored rows. Confirming again then moves
    // nothing twice.
    QStringList replacement(const QString& month) const;
    // That transaction has succeeded; `rows` are what it has stored.
    void stored(const QList<qint64>& codes, const data::Dataset& rows);
    // The month's stored rows have been changed by another page's confirmation.
    void renew(const std::function<void(const QList<data::ColumnInfo>&, QVariantList&)>& change);
    // Whether the month's stored rows are those of the copy, as they are after a confirmation.
    bool isStored(data::HostDatabase& db, const QString& month, const data::Dataset& rows) const;
    // Makes the table again where it went with the session at the server, with the rows that were read last.
    void restore(data::HostDatabase& db, const data::Dataset& rows) const;

private:
    // Rows as a server has them, whatever their columns' order.
    struct Stored {
        QList<data::ColumnInfo> columns;
        QList<QVariantList> rows;
    };
    static bool isSame(const Stored& one, const Stored& other);
    static QStringList written(const Stored& stored, const Stored& other);
    void findStored(const Stored& now, ConfirmedRows& rows) const;

    const PageDefinition& m_page;
    QString m_name;
    bool m_exists = false;
    CopiedRows m_copied;
    Stored m_begun;               // the month's rows as they were made the copy, or stored last
    QStringList m_columns;        // as it knows them, bracketed and in lower case
    QStringList m_storedColumns;  // of the table, when the rows were last asked for
};

}  // namespace definition
