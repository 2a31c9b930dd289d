// A dataset's side of the server: the keys of a table's rows, the rows in sight, and the statements that
// change one row.
#pragma once

#include <functional>
#include <list>
#include <optional>

#include "Connection.h"
#include "Errors.h"
#include "HeldRows.h"
#include "RowKeys.h"

namespace data {

class DatasetTable {
public:
    Connection* connection = nullptr;
    QString name;
    QString filter, restriction;  // conditions; empty for none
    QString condition() const;    // both
    QString orderFields;          // separated by ";", each with " DESC" where it goes down

    // Reads columns and keys; what was there stays when the server refuses. A table of no more than a
    // window's rows comes whole, in one text.
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

    // The rows in sight are fetched again when they are next asked for; held ones take the change until then.
    void forgetAll(const std::function<void(QVariantList&)>& change);
    QList<QVariantList> heldRows() const;

    // A place for a row that the server does not know yet.
    void insertPlace(int row);
    void removePlace(int row);

    // Until the rows are read, new ones are held as they were given.
    void deferReading() { m_defers = true; }

    // Statements. Update and erase refuse when the server has no such row any more.
    void insert(int row, const QVariantList& values);
    // RowChanged where the server's row is another than the one that was read, `original`.
    void update(int row, const QList<int>& changed, const QVariantList& values, const QVariantList& original);
    // Whatever the row holds; it is read once it is looked at.
    void updateBlindly(int row, int column, const QVariantList& values);
    // The row as the server has it, which is what is held from now on. Refusal when it has none.
    QVariantList readAgain(int row, const QVariantList& original);
    void erase(int row);

private:
    static constexpr int kWindowRows = 64;
    static constexpr size_t kWindows = 8;

    struct Window {
        int number = 0;
        QList<QVariantList> rows;
    };
    // The first rows as one text reads them, with their keys.
    struct Start {
        QList<ColumnInfo> columns;
        RowKeys keys;
        QList<QVariantList> rows;
        bool whole = false;  // there are no others
    };

    [[noreturn]] static void refuseVanished();
    // Whether the rows are told apart by an expression; by their values where not.
    bool hasIdentity() const { return !m_identity.isEmpty(); }
    void knowIdentity();
    void readHeld();
    QString ofTable(const QString& column) const;
    QString orderClause() const;
    QString whereCondition() const;
    QString startText() const;
    Start startOf(ResultSet found) const;
    RowKeys readKeys(const QString& tail) const;
    std::optional<RowKeys> readNumberedKeys(const QList<ColumnInfo>& columns, const QString& where) const;
    QStringList keysOf(const Window& window) const;
    QString reading(const QStringList& keys) const;
    Window emptyWindow(int number) const;
    void fill(Window& window, const QStringList& keys, ResultSet found) const;
    Window fetch(int number) const;
    void insertHeld(int row, const QString& statement, const QVariantList& values);
    // When the row is read as the server has it then: in the same round trip, or once it is looked at.
    enum class Reads { Back, Later };
    void send(int row, const QList<int>& changed, const QVariantList& values, const QVariantList* original,
              Reads reads);
    void updateHeld(int row, const QString& settings, const QVariantList& values);
    // Gives the row that was stored last its key; `known` are those from before.
    void findInserted(int row, const RowKeys& known, const QVariantList& values);
    bool takeInserted(int row, const RowKeys& known, const QVariantList& values, const Start& now);
    void takeKey(int row, const QVariant& key);
    bool holds(const QVariantList& row, const QVariantList& values) const;
    std::optional<QVariant> keyOf(const QVariantList& values, const QList<QVariant>& candidates) const;
    QString whereRow(int row) const;
    void forget(int row);

    QString m_identity;
    QString m_identityOf;  // the table that it is of
    QList<ColumnInfo> m_columns;
    RowKeys m_keys;
    bool m_stale = false;   // the held rows have been changed past this object
    HeldRows m_held;        // where nothing tells the rows apart; their keys are its numbers
    int m_newRow = -1;      // the place of a row that the server does not know yet
    bool m_isLong = false;  // the table had more rows than a window when it was read last
    bool m_defers = false;
    QHash<int, QVariantList> m_deferred;  // new rows by place
    QVariantList m_blank;                 // the values of a row that is not there
    std::list<Window> m_windows;          // the one used last in front
};

// Somebody else has changed the row since it was read, or deleted it.
class RowChanged : public Refusal {
public:
    RowChanged();
};

// Converts what was typed, or set by a page, to the type of a column. Refusal for what does not fit.
QVariant columnValue(const ColumnInfo& column, const QVariant& value);
// Whether two values are the same to the last letter; NULL equals NULL only.
bool sameValue(const QVariant& one, const QVariant& other);

}  // namespace data
