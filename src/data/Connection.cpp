#include "Connection.h"

#include <utility>

#include "CodePage.h"
#include "Errors.h"

namespace data {

int ResultSet::indexOf(const QString& name) const {
    for (int i = 0; i < columns.size(); ++i)
        if (columns[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

qint64 Connection::send(const QString& sql, const std::function<void(const QList<ColumnInfo>&)>& columns,
                        const std::function<bool(const RowView&)>& row) {
    const QString folded = foldToCodePage(sql);
    try {
        if (m_transaction == TransactionState::Over)
            throw ServerError(QStringLiteral("The transaction has ended: nothing of it is stored."), 3930);
        if (lineLost())
            throw ServerError(m_lostWords, Fault::LineLost);
        if (m_monitor)
            m_monitor(folded);
        return run(folded, columns, row);
    } catch (ServerError& error) {
        error.setStatement(folded);
        noteLoss(error);
        if (m_transaction == TransactionState::Open)
            endTransaction();
        throw;
    }
}

void Connection::begin() {
    Q_ASSERT(m_transaction == TransactionState::None);
    if (lineLost())
        throw ServerError(m_lostWords, Fault::LineLost);
    try {
        beginTransaction();
    } catch (const ServerError& error) {
        noteLoss(error);
        throw;
    }
    m_transaction = TransactionState::Open;
}

void Connection::commit() {
    if (std::exchange(m_transaction, TransactionState::None) == TransactionState::Over)
        throw ServerError(QStringLiteral("The transaction has ended: nothing of it is stored."), 3930);
    try {
        commitTransaction();
    } catch (const ServerError& error) {
        noteLoss(error);
        if (error.fault() == Fault::LineLost)
            throw ServerError(error.text(), Fault::CommitUnknown);
        throw;
    }
}

void Connection::rollback() {
    if (std::exchange(m_transaction, TransactionState::None) == TransactionState::Open)
        undoTransaction();
}

// After an error of the server's, which is on its way to whoever began.
void Connection::endTransaction() {
    m_transaction = TransactionState::Over;
    try {
        undoTransaction();
    } catch (const ServerError&) {
        // The server has undone it, or the line is cut, which does so too.
    }
}

void Connection::noteLoss(const ServerError& error) {
    if (error.fault() == Fault::LineLost && !lineLost())
        m_lostWords = error.text();
}

QStringList Connection::connectAgain() {
    const QString lostWords = std::exchange(m_lostWords, {});
    m_transaction = TransactionState::None;
    try {
        makeSession();
        const QList<Reconnection*> all = *m_reconnections;
        QStringList settled;
        for (const Reconnection* one : all)
            settled.append(one->m_settle());
        for (const Reconnection* one : all)
            one->m_restore();
        settled.removeAll(QString());
        return settled;
    } catch (...) {
        m_lostWords = lostWords;
        throw;
    }
}

Reconnection::Reconnection(Connection& connection, std::function<QString()> settle,
                           std::function<void()> restore)
    : m_all(connection.m_reconnections), m_settle(std::move(settle)), m_restore(std::move(restore)) {
    m_all->append(this);
}

Reconnection::~Reconnection() {
    m_all->removeOne(this);
}

ResultSet Connection::execute(const QString& sql) {
    ResultSet last;
    last.affected = collect(sql, [&](const QList<ColumnInfo>& columns) -> ResultSet& {
        last = {.columns = columns};
        return last;
    });
    return last;
}

QList<ResultSet> Connection::executeAll(const QString& sql) {
    QList<ResultSet> all;
    collect(sql, [&](const QList<ColumnInfo>& columns) -> ResultSet& {
        all.append({.columns = columns});
        return all.last();
    });
    return all;
}

// Runs a batch whose rows go into what `next` gives for each SELECT. The rows affected, as run has them.
qint64 Connection::collect(const QString& sql,
                           const std::function<ResultSet&(const QList<ColumnInfo>&)>& next) {
    ResultSet* result = nullptr;
    return send(
        sql, [&](const QList<ColumnInfo>& columns) { result = &next(columns); },
        [&](const RowView& row) {
            QVariantList values;
            values.reserve(result->columns.size());
            for (int i = 0; i < result->columns.size(); ++i)
                values.append(row.value(i));
            result->rows.append(std::move(values));
            return true;
        });
}

qint64 Connection::stream(const QString& sql, const std::function<void(const QList<ColumnInfo>&)>& columns,
                          const std::function<bool(const RowView&)>& row) {
    return send(sql, columns, row);
}

Transaction::~Transaction() {
    if (!m_open)
        return;
    try {
        m_connection.rollback();
    } catch (const std::exception&) {
        // A connection that is gone has rolled back by itself; the error that led here is on its way.
    }
}

void Transaction::commit() {
    m_connection.commit();
    m_open = false;
}

QString quoted(const QString& text) {
    QString result = text;
    result.replace(QLatin1String("'"), QLatin1String("''"));
    return u'\'' + result + u'\'';
}

QString bracketed(const QString& name) {
    QString result = name;
    result.replace(QLatin1String("]"), QLatin1String("]]"));
    return u'[' + result + u']';
}

}  // namespace data
