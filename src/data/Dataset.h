// A cursor over the rows of one table: it holds the row keys and, in windows, the rows in sight; one
// row at a time can be edited. Rows of a table without a key are told apart by their place, or where the
// connection knows none by their values: an edit or a deletion never touches a twin.
//
// Events run in the order in which data-aware components expect them. An exception thrown by a
// before-event (SilentAbort, Refusal, ServerError) leaves cursor, state and edits as they were.
#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "Connection.h"

namespace data {

class Dataset : public QObject {
    Q_OBJECT

public:
    enum class State { Closed, Browse, Edit, Insert };
    using Handler = std::function<void()>;

    explicit Dataset(QObject* parent = nullptr);
    ~Dataset() override;

    // --- source: set while closed -----------------------------------------------------------------
    void setConnection(Connection* connection);
    Connection* connection() const;
    void setTableName(const QString& table);
    QString tableName() const;
    // Columns to order by, separated by ";", each followed by " DESC" where it goes down; rows with equal
    // values keep their place order. Setting it while open re-orders and keeps the current row.
    void setIndexFieldNames(const QString& fields);
    QString indexFieldNames() const;
    // A condition (T-SQL, without WHERE) that limits the rows; while one is set every change is a
    // Refusal. Empty for all rows.
    void setRestriction(const QString& condition);
    QString restriction() const;
    // A condition that says which of the table's rows these are; they can be changed as ever.
    void setFilter(const QString& condition);
    // Filter and restriction together: which rows of the table are here. Empty for all.
    QString condition() const;

    void open();   // no effect when open
    void close();  // drops a row in edit
    // Reads the rows again and stays on the same row; posts a row in edit first.
    void refresh();

    State state() const;
    bool active() const { return state() != State::Closed; }

    // --- columns ----------------------------------------------------------------------------------
    const QList<ColumnInfo>& columns() const;
    int columnIndex(const QString& name) const;  // -1 when there is none

    // The statement that selects these columns of all stored rows, in row order; for those who read the
    // whole table at once.
    QString selection(const QStringList& fields) const;

    // --- cursor -----------------------------------------------------------------------------------
    // Rows, one not posted yet included; rows count from 0 here.
    int recordCount() const;
    bool isEmpty() const { return recordCount() == 0; }
    int row() const;                         // -1 when empty or closed
    int recNo() const { return row() + 1; }  // as operators count
    // Each move posts a changed row first, and cancels an untouched new one.
    void first();
    void last();
    void next();   // stays on the last row
    void prior();  // stays on the first row
    void moveTo(int row);

    // --- values -----------------------------------------------------------------------------------
    // Of the current row, edits included. Invalid when NULL or without a row.
    QVariant value(int column) const;
    QVariant value(const QString& column) const { return value(columnIndex(column)); }
    // valueText of it.
    QString text(const QString& column) const;
    // Of any row; fetches its window when it is not in sight yet.
    QVariant valueAt(int row, int column) const;
    // As it was before the row's edit began (for a new row: after its defaults).
    QVariant originalValue(int column) const;

    // --- the current row as the server has it now, whatever is shown; others may have changed the table ---
    // Its place as operators count, 0 for a new row. Refusal where somebody has deleted it.
    int storedPlace() const;
    // Invalid for NULL, for a new row and for one that is gone.
    QVariant storedValue(const QString& column) const;

    // Puts the row in edit when it is not and stores a value: text is folded (digits to ASCII, ی to
    // ي) and converted to the column's type, empty text in a number is NULL. Refusal for a number that
    // is none, a text longer than the column or a character the database cannot hold.
    void setValue(const QString& column, const QVariant& value);
    void setValue(int column, const QVariant& value);

    // --- changes ----------------------------------------------------------------------------------
    void edit();    // no effect in edit and insert; on an empty table it inserts
    void insert();  // a new row before the current one
    void append();  // a new row after the last
    // Stores the row and reads it again, in one transaction; ServerError or Refusal leave it in edit. A row
    // that somebody else has changed since it was read is not written over: Refusal, and the next post stores
    // what was typed into the row that there is now.
    void post();
    void cancel();  // forgets the row's edits, or the new row
    // Deletes the current row with its edits, if any, or nothing; a new row is cancelled instead.
    void deleteRow();
    // Posts a changed row, cancels an untouched one; what every move does first.
    void checkBrowseMode();
    // In the midst of transact, for many new rows: each stands as it was given until all are read at its end.
    void deferReading();
    // Whether the operator, not the page's defaults, changed the row in edit.
    bool modified() const;

    // Writes a column of one row at once, past the row checks and events; for renumbering.
    void updateSilently(int row, const QString& column, const QVariant& value);

    // The stored rows have been changed past this dataset, their keys and order apart: they are fetched again
    // when they are next asked for. A row in edit keeps its edits; `change` is made to its values, and to
    // those that it began with. Sends nothing.
    void renew(const std::function<void(QVariantList&)>& change);

    // All stored rows as they were last read, without a word to the server; none where it tells them apart,
    // for then they are not all held.
    QList<QVariantList> heldRows() const;

    enum class After { SameRow, FirstRow };
    // Changes the table by whatever steps, this object's or other statements, and shows what it holds then:
    // the changes and the reading of the rows are one transaction, and its commit is the last that can
    // fail. A row in edit is dropped. What fails is undone, here too: cursor and edits are as they were.
    void transact(const Handler& change, After after);

    // --- events -----------------------------------------------------------------------------------
    Handler beforeInsert, afterInsert;
    Handler beforeEdit, afterEdit;
    Handler beforePost, afterPost;
    // Between the two, in one transaction with the row: before it is stored, for values that depend on what
    // the server has then, and after. An exception undoes all of it and leaves the row in edit.
    Handler beforeStore, duringPost;
    Handler beforeDelete, afterDelete;
    Handler beforeScroll, afterScroll;
    Handler afterCancel;
    // Before a post or a move the views hand over what is being typed; on a cancel they drop it.
    Handler updateRecord;

Q_SIGNALS:
    // For views. rowsReset: everything may have changed; the others name a row.
    void rowsReset();
    void rowInserted(int row);
    void rowRemoved(int row);
    void rowChanged(int row);
    void cursorMoved();
    void stateChanged();

private:
    void enterState(State state);
    void reread(const Handler& change);
    // Ends an edit, then moves to the row that stood at `target` before, or the nearest there is.
    void scroll(int target);
    void endEditFor(int target);
    void endEdit();
    void startInsert(const std::function<int()>& place);
    void takeDefaults();
    void store();
    void write();
    void takeStored();
    void dropRow(const Handler& remove, int nextRow);

    struct Private;
    void takeBack(const Private& before);
    std::unique_ptr<Private> d;
};

// A literal for a statement: numbers bare, texts quoted, bytes as 0x…, NULL.
QString literal(const QVariant& value);
// The statement that puts a row into a table; values in the order of the columns, empty where there are
// fewer.
QString insertion(const QString& table, const QList<ColumnInfo>& columns, const QVariantList& values);

}  // namespace data
