// A connection to the company's database. All that the module sends is T-SQL text; whether SQL Server
// or the embedded engine answers cannot be told from above.
#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>

namespace data {

class ServerError;

enum class ColumnType { Integer, Real, Text, DateTime, Binary };

// One column of a result or table.
struct ColumnInfo {
    QString name;
    ColumnType type = ColumnType::Text;
    int length = 0;  // characters of a text column, 0 where it has no limit
    bool nullable = true;
    bool identity = false;
};

// The row a stream stands on; valid only inside the handler it is handed to. Integers come as
// qlonglong, reals as double, texts and dates as QString, NULL as an invalid QVariant.
class RowView {
public:
    virtual ~RowView() = default;
    virtual QVariant value(int column) const = 0;
    virtual bool isNull(int column) const = 0;
    // The value as UTF-8 text without a copy, valid until the next row.
    virtual QByteArrayView text(int column) const = 0;
};

struct ResultSet {
    QList<ColumnInfo> columns;  // empty when the batch held no SELECT
    QList<QVariantList> rows;
    qint64 affected = 0;  // rows touched by the last INSERT, UPDATE or DELETE of the batch

    // Index of a column by name, letter case ignored; -1 when there is none.
    int indexOf(const QString& name) const;
};

// Sees every statement before it is sent; may throw ServerError in the server's place. A dataset's
// own traffic passes here like the rest; begin, commit and rollback do not.
using StatementMonitor = std::function<void(const QString& sql)>;

// One statement's stay at the server, as those see it who wait for it. Made before it is sent.
class Patience {
public:
    Patience() = default;
    Patience(const Patience&) = delete;
    Patience& operator=(const Patience&) = delete;
    virtual ~Patience() = default;
    // Asked every now and then until the answer is there; false gives the statement up.
    virtual bool goOn() = 0;
    // Whether the operator sees that it takes its time: then it may take any.
    virtual bool isSeen() const = 0;
};
using PatienceMaker = std::function<std::unique_ptr<Patience>()>;

class Reconnection;

class Connection {
public:
    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    virtual ~Connection() = default;

    // Runs a batch (statements with or without separators) and returns the rows of its last SELECT.
    // Letters are folded to what Windows-1256 holds (ی U+06CC to ي); a character that it cannot hold
    // is a Refusal and nothing is sent. Throws ServerError with the server's text; a batch that fails
    // half-way keeps what its earlier statements did, unless a transaction is open: that is over then, and
    // nothing of it is stored. Until rollback or commit, which throws, has been called no statement is sent.
    ResultSet execute(const QString& sql);

    // What each SELECT of the batch gave, in their order: on a network a text is waited for, not a statement.
    QList<ResultSet> executeAll(const QString& sql);

    // The same, row by row: `columns` once, then `row` for each row until it returns false. Neither
    // may use this connection.
    qint64 stream(const QString& sql, const std::function<void(const QList<ColumnInfo>&)>& columns,
                  const std::function<bool(const RowView&)>& row);

    // One transaction at a time; begin inside an open one is a programming error. Whatever the server says
    // to commit or rollback, none is open afterwards.
    void begin();
    void commit();
    void rollback();
    bool inTransaction() const { return m_transaction != TransactionState::None; }

    // A T-SQL expression that tells the rows of the table apart, twins included: the key column where the
    // table has one, else the row's place in the file; empty on a server, where a place is nothing to count
    // on.
    virtual QString rowIdentity(const QString& table) = 0;

    void setMonitor(StatementMonitor monitor) { m_monitor = std::move(monitor); }
    // Without one a statement is waited for as long as the connection's settings have it.
    void setPatience(PatienceMaker patience) { m_patience = std::move(patience); }

    // The line to the server is cut: every statement is refused (Fault::LineLost) until connectAgain.
    bool lineLost() const { return !m_lostWords.isEmpty(); }
    // Makes the line anew, then what its Reconnections keep. What these have found out, as Persian sentences.
    // Throws what either is refused; the line counts as cut then, and it can be tried again.
    QStringList connectAgain();

protected:
    // Runs a folded batch; returns the rows affected by its last data change.
    virtual qint64 run(const QString& sql, const std::function<void(const QList<ColumnInfo>&)>& columns,
                       const std::function<bool(const RowView&)>& row) = 0;

    virtual void beginTransaction() = 0;
    virtual void commitTransaction() = 0;
    // Undoes the transaction where the server has not done so by itself.
    virtual void undoTransaction() = 0;
    // A new session in the place of the one whose line is cut.
    virtual void makeSession() {}

    std::unique_ptr<Patience> newPatience() const { return m_patience ? m_patience() : nullptr; }

private:
    friend class Reconnection;

    enum class TransactionState { None, Open, Over };

    // Runs a batch that the monitor has let pass.
    qint64 send(const QString& sql, const std::function<void(const QList<ColumnInfo>&)>& columns,
                const std::function<bool(const RowView&)>& row);
    void endTransaction();
    void noteLoss(const ServerError& error);
    qint64 collect(const QString& sql, const std::function<ResultSet&(const QList<ColumnInfo>&)>& next);

    StatementMonitor m_monitor;
    PatienceMaker m_patience;
    TransactionState m_transaction = TransactionState::None;
    QString m_lostWords;  // what the driver said when the line was cut; empty while it stands
    std::shared_ptr<QList<Reconnection*>> m_reconnections = std::make_shared<QList<Reconnection*>>();
};

// For those who keep something in the session at the server: once a line stands again, all settle what the
// old one has stored, and say so if it was not known, and then all restore what went with it.
class Reconnection {
public:
    Reconnection(Connection& connection, std::function<QString()> settle, std::function<void()> restore);
    ~Reconnection();
    Reconnection(const Reconnection&) = delete;
    Reconnection& operator=(const Reconnection&) = delete;

private:
    friend class Connection;

    std::shared_ptr<QList<Reconnection*>> m_all;  // may outlive the connection
    std::function<QString()> m_settle;
    std::function<void()> m_restore;
};

// Rolls back unless committed.
class Transaction {
public:
    explicit Transaction(Connection& connection) : m_connection(connection) { m_connection.begin(); }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    Connection& m_connection;
    bool m_open = true;
};

// 'text' with its quotes doubled, between quotes.
QString quoted(const QString& text);
// [name], with closing brackets doubled.
QString bracketed(const QString& name);

}  // namespace data
