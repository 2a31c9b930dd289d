// The statements with which a dataset changes its table.
#include <utility>

#include "Dataset.h"
#include "DatasetTable.h"
#include "Errors.h"

namespace data {
namespace {

[[noreturn]] void refuseLost() {
    throw Refusal(QStringLiteral(
        "رديف تازه پس از ثبت پيدا نشد و ثبت نشد. کليد ESC را بزنيد و فهرست را دوباره باز کنيد."));
}

}  // namespace

RowChanged::RowChanged() : Refusal(QStringLiteral("اين رديف را کاربر ديگري تغيير داده است")) {}

void DatasetTable::refuseVanished() {
    throw Refusal(QStringLiteral(
        "اين رديف را کاربر ديگري حذف کرده است. کليد ESC را بزنيد و فهرست را دوباره باز کنيد."));
}

QString DatasetTable::whereRow(int row) const {
    const QVariant key = m_keys.at(row);
    return " WHERE " + (hasIdentity() ? m_identity + u'=' + literal(key)
                                      : holdsValues(m_columns, m_held.values(key.toLongLong())));
}

void DatasetTable::insert(int row, const QVariantList& values) {
    QStringList names, literals;
    for (int i = 0; i < m_columns.size(); ++i) {
        if (!values[i].isValid() || m_columns[i].identity)
            continue;
        names.append(bracketed(m_columns[i].name));
        literals.append(literal(values[i]));
    }
    const QString content =
        names.isEmpty() ? QStringLiteral(" DEFAULT VALUES")
                        : QStringLiteral(" (%1) VALUES (%2)").arg(names.join(u','), literals.join(u','));
    const QString statement = "INSERT INTO " + bracketed(name) + content;
    if (m_defers) {
        connection->execute(statement);
        m_deferred.insert(row, values);
        m_newRow = -1;
        return;
    }
    RowKeys known = m_keys;
    known.remove(row);
    // A row that was stored and could not be found again would be stored twice by the next attempt.
    std::optional<Transaction> transaction;
    if (!connection->inTransaction())
        transaction.emplace(*connection);
    if (!hasIdentity()) {
        insertHeld(row, statement, values);
    } else if (m_isLong) {
        connection->execute(statement);
        findInserted(row, known, values);
    } else if (const Start now = startOf(connection->execute(statement + u'\n' + startText()));
               !now.whole || !takeInserted(row, known, values, now)) {
        findInserted(row, known, values);
    }
    if (transaction)
        transaction->commit();
}

void DatasetTable::insertHeld(int row, const QString& statement, const QVariantList& values) {
    const ResultSet all =
        connection->execute(statement + "\nSELECT * FROM " + bracketed(name) + whereCondition());
    HeldRows now = m_held;
    const RowKeys numbers = now.take(all.rows, m_keys, true);
    std::optional<QVariantList> stored;
    for (const QVariant& number : m_keys.added(numbers))
        if (const QVariantList& found = now.values(number.toLongLong()); !stored || holds(found, values))
            stored = found;
    if (!stored)
        refuseLost();
    takeKey(row, m_held.add(*stored));
}

void DatasetTable::takeKey(int row, const QVariant& key) {
    m_keys.replace(row, key);
    m_newRow = -1;
    forget(row);
}

// The new one among the rows that one text has read; false where it is not plain which it is.
bool DatasetTable::takeInserted(int row, const RowKeys& known, const QVariantList& values, const Start& now) {
    const QList<QVariant> added = known.added(now.keys);
    if (added.size() != 1 || !holds(now.rows[now.keys.indexOf(added.first())], values))
        return false;
    takeKey(row, added.first());
    Window window = emptyWindow(0);
    for (qsizetype place = 0; place < window.rows.size(); ++place)
        if (const int found = now.keys.indexOf(m_keys.at(static_cast<int>(place))); found >= 0)
            window.rows[place] = now.rows[found];
    m_windows.clear();
    m_windows.push_front(std::move(window));
    return true;
}

// Others may have added rows since the keys were read, or deleted one whose place the new one has taken: the
// new one holds the values.
void DatasetTable::findInserted(int row, const RowKeys& known, const QVariantList& values) {
    const RowKeys now = readKeys(whereCondition());
    const QList<QVariant> added = known.added(now), all = RowKeys().added(now);
    if (added.size() == 1) {
        takeKey(row, added.first());
        if (holds(this->values(row), values))
            return;
    }
    std::optional<QVariant> key = added.size() > 1 ? keyOf(values, added) : std::nullopt;
    if (!key)
        key = keyOf(values, all);
    if (!key && added.isEmpty())
        refuseLost();
    takeKey(row, key.value_or(added.value(added.size() - 1)));
}

// Whether a row that was read holds all that a new one was given.
bool DatasetTable::holds(const QVariantList& row, const QVariantList& values) const {
    bool same = row.size() >= values.size();
    for (int i = 0; same && i < values.size(); ++i)
        same = !values[i].isValid() || m_columns[i].identity || sameValue(row[i], values[i]);
    return same;
}

std::optional<QVariant> DatasetTable::keyOf(const QVariantList& values,
                                            const QList<QVariant>& candidates) const {
    QStringList keys;
    for (const QVariant& key : candidates)
        keys.append(literal(key));
    if (keys.isEmpty())
        return {};
    for (QVariantList& row : connection->execute(reading(keys)).rows) {
        const QVariant key = row.takeFirst();
        if (holds(row, values))
            return key;
    }
    return {};
}

void DatasetTable::update(int row, const QList<int>& changed, const QVariantList& values,
                          const QVariantList& original) {
    send(row, changed, values, &original, Reads::Back);
}

void DatasetTable::updateBlindly(int row, int column, const QVariantList& values) {
    send(row, {column}, values, nullptr, Reads::Later);
}

void DatasetTable::send(int row, const QList<int>& changed, const QVariantList& values,
                        const QVariantList* original, Reads reads) {
    QStringList settings;
    QVariant key = m_keys.at(row);
    for (const int column : changed) {
        const QString bracketedName = bracketed(m_columns[column].name);
        settings.append(bracketedName + u'=' + literal(values[column]));
        if (bracketedName.compare(m_identity, Qt::CaseInsensitive) == 0) {
            key = values[column];
            reads = Reads::Later;
        }
    }
    if (!hasIdentity())
        return updateHeld(row, settings.join(u','), values);
    Window window = emptyWindow(row / kWindowRows);
    const QStringList keys = reads == Reads::Back ? keysOf(window) : QStringList();
    const QString asRead = original ? " AND " + holdsValues(m_columns, *original) : QString();
    const ResultSet result =
        connection->execute(QStringLiteral("UPDATE %1 SET ").arg(bracketed(name)) + settings.join(u',') +
                            whereRow(row) + asRead + u' ' + reading(keys));
    if (result.affected == 0)
        throw RowChanged();
    m_keys.replace(row, key);
    forget(row);
    if (reads == Reads::Later)
        return;
    fill(window, keys, result);
    m_windows.push_front(std::move(window));
}

// The row as the server has it then is found by what it has been given.
void DatasetTable::updateHeld(int row, const QString& settings, const QVariantList& values) {
    const ResultSet result = connection->execute("UPDATE TOP (1) " + bracketed(name) + " SET " + settings +
                                                 whereRow(row) + "\nSELECT TOP 1 * FROM " + bracketed(name) +
                                                 " WHERE " + holdsValues(m_columns, values));
    if (result.affected != 1)
        throw RowChanged();
    m_held.replace(m_keys.at(row).toLongLong(), result.rows.value(0, values));
}

// Where nothing tells the rows apart, the only one in the same place of their order is the same row.
QVariantList DatasetTable::readAgain(int row, const QVariantList& original) {
    QString same = m_identity + u'=' + literal(m_keys.at(row));
    if (!hasIdentity()) {
        QList<ColumnInfo> columns;
        QVariantList values;
        for (const QString& term : orderFields.split(u';', Qt::SkipEmptyParts))
            if (const int column = columnIndex(term.trimmed().section(u' ', 0, 0)); column >= 0) {
                columns.append(m_columns[column]);
                values.append(original[column]);
            }
        same = holdsValues(columns, values);
    }
    const ResultSet now =
        same.isEmpty() ? ResultSet()
                       : connection->execute("SELECT TOP 2 * FROM " + bracketed(name) + " WHERE " + same);
    if (now.rows.size() != 1)
        refuseVanished();
    if (hasIdentity())
        forget(row);
    else
        m_held.replace(m_keys.at(row).toLongLong(), now.rows[0]);
    return now.rows[0];
}

void DatasetTable::erase(int row) {
    const ResultSet result = connection->execute((hasIdentity() ? "DELETE FROM " : "DELETE TOP (1) FROM ") +
                                                 bracketed(name) + whereRow(row));
    if (result.affected == 0)
        refuseVanished();
    if (!hasIdentity())
        m_held.remove(m_keys.at(row).toLongLong());
    removePlace(row);
}

}  // namespace data
