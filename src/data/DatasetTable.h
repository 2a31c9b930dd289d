// A dataset's side of the server: the keys of a table's rows, the rows in sight, and the statements that
// change one row.
#pragma once

#include <QList>
#include <QVariant>
#include <list>
#include <optional>
#include <vector>

#include "Connection.h"

namespace data {

// Row keys in row order. Integers, the common case, take eight bytes each.
class RowKeys {
public:
    int size() const { return static_cast<int>(m_compact ? m_integers.size() : m_others.size()); }
    void append(const QVariant& key);
    void insert(int place, const QVariant& key);
    void replace(int place, const QVariant& key);
    void remove(int place);
    QVariant at(int place) const;
    int indexOf(const QVariant& key) const;  // -1 when it is not there
    // Whether they are numbers, each above the one before it.
    bool ascend() const;
    // Those of `others` that are not among these.
    QList<QVariant> added(const RowKeys& others) const;

private:
    void admit(const QVariant& key);

    bool m_compact = true;
    std::vector<qlonglong> m_integers;
    QList<QVariant> m_others;
};

class DatasetTable {
public:
    Connection* connection = nullptr;
    QString name;
    QString filter, restriction;  // conditions; empty for none
    QString condition() const;    // both
    QString orderFields;          // separated by ";", each with " DESC" where it goes down

    // Reads columns and keys; what was there stays when the server refuses.
    void read();
    void clear();

    const QList<ColumnInfo>& columns() const { return m_columns; }
    int columnIndex(const QString& column) const;
    int size() const { return m_keys.size(); }
    QVariant key(int row) const { return m_keys.at(row); }
    int rowOf(const QVariant& key) const { return m_keys.indexOf(key); }
    // Values of a row; fetches the window around it. One empty value a column when the row is gone.
    const QVariantList& values(int row);
    // The same, of the server as it is now; and where the row stands among the rows that it has. Refusal
    // when it has no such row any more.
    QVariantList storedValues(int row) const;
    int storedPlace(int row) const;

    // The statement that selects these columns of all rows, in row order.
    QString selection(const QStringList& fields) const;

    // The rows in sight are fetched again when they are next asked for.
    void forgetAll() { m_windows.clear(); }

    // A place for a row that the server does not know yet.
    void insertPlace(int row);
    void removePlace(int row);

    // Statements. Update and erase refuse when the server has no such row any more.
    void insert(int row, const QVariantList& values);
    // When the row is read as the server has it then: in the same round trip, or once it is looked at.
    enum class Reads { Back, Later };
    void update(int row, const QList<int>& changed, const QVariantList& values, Reads reads);
    void erase(int row);

private:
    struct Window {
        int number = 0;
        QList<QVariantList> rows;
    };

    QString orderClause() const;
    QString whereCondition() const;
    RowKeys readKeys(const QString& tail) const;
    std::optional<RowKeys> readNumberedKeys(const QList<ColumnInfo>& columns, const QString& where) const;
    QStringList keysOf(const Window& window) const;
    QString reading(const QStringList& keys) const;
    Window emptyWindow(int number) const;
    void fill(Window& window, const QStringList& keys, ResultSet found) const;
    Window fetch(int number) const;
    // The key of the row that was stored last; `known` are those from before.
    QVariant addedKey(const RowKeys& known, const QVariantList& values) const;
    QString whereKey(const QVariant& key) const;
    void forget(int row);

    QString m_identity;
    QList<ColumnInfo> m_columns;
    RowKeys m_keys;
    int m_newRow = -1;            // the place of a row that the server does not know yet
    std::list<Window> m_windows;  // the one used last in front
};

// Converts what was typed, or set by a page, to the type of a column. Refusal for what does not fit.
QVariant columnValue(const ColumnInfo& column, const QVariant& value);
// Whether two values are the same to the last letter; NULL equals NULL only.
bool sameValue(const QVariant& one, const QVariant& other);

}  // namespace data
