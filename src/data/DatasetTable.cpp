#include "DatasetTable.h"

#include <QSet>
#include <algorithm>
#include <limits>

#include "Dataset.h"
#include "Errors.h"

namespace data {
namespace {

constexpr int kWindowRows = 64;
constexpr size_t kWindows = 8;

[[noreturn]] void refuseVanished() {
    throw Refusal(QStringLiteral(
        "اين رديف را کاربر ديگري حذف کرده است. کليد ESC را بزنيد و فهرست را دوباره باز کنيد."));
}

}  // namespace

// --- RowKeys ----------------------------------------------------------------------------------------

void RowKeys::admit(const QVariant& key) {
    const bool integer = key.metaType().id() == QMetaType::LongLong;
    if (integer || !m_compact)
        return;
    for (const qlonglong known : m_integers)
        m_others.append(known);
    m_integers.clear();
    m_integers.shrink_to_fit();
    m_compact = false;
}

void RowKeys::append(const QVariant& key) {
    insert(size(), key);
}

void RowKeys::insert(int place, const QVariant& key) {
    admit(key);
    if (m_compact)
        m_integers.insert(m_integers.begin() + place, key.toLongLong());
    else
        m_others.insert(place, key);
}

void RowKeys::replace(int place, const QVariant& key) {
    admit(key);
    if (m_compact)
        m_integers[place] = key.toLongLong();
    else
        m_others[place] = key;
}

void RowKeys::remove(int place) {
    if (m_compact)
        m_integers.erase(m_integers.begin() + place);
    else
        m_others.removeAt(place);
}

QVariant RowKeys::at(int place) const {
    return m_compact ? QVariant(m_integers[place]) : m_others[place];
}

int RowKeys::indexOf(const QVariant& key) const {
    if (!m_compact)
        return static_cast<int>(m_others.indexOf(key));
    const auto found = std::find(m_integers.begin(), m_integers.end(), key.toLongLong());
    return found == m_integers.end() ? -1 : static_cast<int>(found - m_integers.begin());
}

bool RowKeys::ascend() const {
    return m_compact && std::is_sorted(m_integers.begin(), m_integers.end());
}

QList<QVariant> RowKeys::added(const RowKeys& others) const {
    QList<QVariant> result;
    if (m_compact && others.m_compact) {
        std::vector<qlonglong> known = m_integers;
        std::sort(known.begin(), known.end());
        for (const qlonglong key : others.m_integers)
            if (!std::binary_search(known.begin(), known.end(), key))
                result.append(key);
        return result;
    }
    QSet<QString> known;
    for (int place = 0; place < size(); ++place)
        known.insert(literal(at(place)));
    for (int place = 0; place < others.size(); ++place)
        if (!known.contains(literal(others.at(place))))
            result.append(others.at(place));
    return result;
}

// --- reading ----------------------------------------------------------------------------------------

int DatasetTable::columnIndex(const QString& column) const {
    for (int i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].name.compare(column, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QString DatasetTable::orderClause() const {
    QStringList terms;
    for (const QString& term : orderFields.split(u';', Qt::SkipEmptyParts)) {
        static const QString down = QStringLiteral(" DESC");
        const QString field = term.trimmed();
        const bool descends = field.endsWith(down, Qt::CaseInsensitive);
        terms.append(bracketed(descends ? field.chopped(down.size()).trimmed() : field) +
                     (descends ? down : QString()));
    }
    // The server refuses a term that stands there twice.
    if (!terms.contains(m_identity, Qt::CaseInsensitive))
        terms.append(m_identity);
    return QStringLiteral(" ORDER BY ") + terms.join(u',');
}

QString DatasetTable::condition() const {
    if (filter.isEmpty() || restriction.isEmpty())
        return filter + restriction;
    return u'(' + filter + ") AND (" + restriction + u')';
}

QString DatasetTable::whereCondition() const {
    const QString rows = condition();
    return rows.isEmpty() ? rows : " WHERE " + rows;
}

RowKeys DatasetTable::readKeys(const QString& tail) const {
    RowKeys keys;
    connection->stream(
        QStringLiteral("SELECT %1 FROM %2%3").arg(m_identity, bracketed(name), tail),
        [](const QList<ColumnInfo>&) {},
        [&](const RowView& row) {
            keys.append(row.value(0));
            return true;
        });
    return keys;
}

// Rows in the order of one column of whole numbers, empty ones first: sorting them here takes a third of
// the server's time. No value where order or keys are of another kind.
std::optional<RowKeys> DatasetTable::readNumberedKeys(const QList<ColumnInfo>& columns,
                                                      const QString& where) const {
    const auto ordersBy = [this](const ColumnInfo& column) {
        return column.type == ColumnType::Integer &&
               column.name.compare(orderFields.trimmed(), Qt::CaseInsensitive) == 0;
    };
    if (std::none_of(columns.begin(), columns.end(), ordersBy))
        return {};
    std::vector<std::pair<qlonglong, qlonglong>> rows;
    bool numbers = true;
    const auto isNumber = [](const QVariant& value) { return value.metaType().id() == QMetaType::LongLong; };
    connection->stream(
        QStringLiteral("SELECT %1,%2 FROM %3%4")
            .arg(m_identity, bracketed(orderFields.trimmed()), bracketed(name), where),
        [](const QList<ColumnInfo>&) {},
        [&](const RowView& row) {
            const QVariant key = row.value(0), order = row.value(1);
            numbers = isNumber(key) && (isNumber(order) || !order.isValid());
            rows.emplace_back(order.isValid() ? order.toLongLong() : std::numeric_limits<qlonglong>::min(),
                              key.toLongLong());
            return numbers;
        });
    if (!numbers)
        return {};
    std::sort(rows.begin(), rows.end());
    RowKeys keys;
    for (const auto& [order, key] : rows)
        keys.append(key);
    return keys;
}

void DatasetTable::read() {
    m_identity = connection->rowIdentity(name);
    const ResultSet shape =
        connection->execute(QStringLiteral("SELECT * FROM %1 WHERE 1=0").arg(bracketed(name)));
    const QString where = whereCondition();
    std::optional<RowKeys> keys = readNumberedKeys(shape.columns, where);
    if (!keys)
        keys = readKeys(where + orderClause());
    m_columns = shape.columns;
    m_keys = *std::move(keys);
    m_newRow = -1;
    m_windows.clear();
}

void DatasetTable::clear() {
    m_columns.clear();
    m_keys = {};
    m_newRow = -1;
    m_windows.clear();
}

QString DatasetTable::selection(const QStringList& fields) const {
    QStringList names;
    for (const QString& field : fields)
        names.append(bracketed(field));
    // Rows whose keys go up need no sorting by the server.
    const QString order = m_keys.ascend() ? " ORDER BY " + m_identity : orderClause();
    return QStringLiteral("SELECT %1 FROM %2%3%4")
        .arg(names.join(u','), bracketed(name), whereCondition(), order);
}

DatasetTable::Window DatasetTable::emptyWindow(int number) const {
    const int rows = qMin(kWindowRows, size() - number * kWindowRows);
    return {number, QList<QVariantList>(rows, QVariantList(m_columns.size()))};
}

// Of the rows in their order; empty for the row that the server does not know.
QStringList DatasetTable::keysOf(const Window& window) const {
    const int first = window.number * kWindowRows;
    QStringList keys;
    for (int row = first; row < first + window.rows.size(); ++row)
        keys.append(row == m_newRow ? QString() : literal(m_keys.at(row)));
    return keys;
}

// The statement that reads those rows; empty when there are none.
QString DatasetTable::reading(const QStringList& keys) const {
    QStringList known = keys;
    known.removeAll(QString());
    return known.isEmpty() ? QString()
                           : QStringLiteral("SELECT %1,* FROM %2 WHERE %1 IN (%3)")
                                 .arg(m_identity, bracketed(name), known.join(u','));
}

void DatasetTable::fill(Window& window, const QStringList& keys, ResultSet found) const {
    QHash<QString, qsizetype> places;
    for (qsizetype place = 0; place < keys.size(); ++place)
        places.insert(keys[place], place);
    for (QVariantList& row : found.rows) {
        const qsizetype place = places.value(literal(row.takeFirst()), -1);
        if (place < 0 || row.size() < m_columns.size())
            continue;
        row.resize(m_columns.size());  // columns that have been added meanwhile stand behind the known ones
        window.rows[place] = std::move(row);
    }
}

DatasetTable::Window DatasetTable::fetch(int number) const {
    Window window = emptyWindow(number);
    const QStringList keys = keysOf(window);
    if (const QString sql = reading(keys); !sql.isEmpty())
        fill(window, keys, connection->execute(sql));
    return window;
}

const QVariantList& DatasetTable::values(int row) {
    const int number = row / kWindowRows;
    const auto known = std::find_if(m_windows.begin(), m_windows.end(),
                                    [number](const Window& window) { return window.number == number; });
    if (known == m_windows.end())
        m_windows.push_front(fetch(number));
    else
        m_windows.splice(m_windows.begin(), m_windows, known);
    if (m_windows.size() > kWindows)
        m_windows.pop_back();
    return m_windows.front().rows[row % kWindowRows];
}

QVariantList DatasetTable::storedValues(int row) const {
    return fetch(row / kWindowRows).rows[row % kWindowRows];
}

int DatasetTable::storedPlace(int row) const {
    DatasetTable now = *this;
    now.read();
    const int place = now.rowOf(key(row));
    if (place < 0)
        refuseVanished();
    return place;
}

void DatasetTable::forget(int row) {
    m_windows.remove_if([row](const Window& window) { return window.number == row / kWindowRows; });
}

void DatasetTable::insertPlace(int row) {
    m_keys.insert(row, m_keys.size() > 0 ? m_keys.at(0) : QVariant(qlonglong(0)));
    m_newRow = row;
    m_windows.clear();
}

void DatasetTable::removePlace(int row) {
    m_keys.remove(row);
    m_newRow = -1;
    m_windows.clear();
}

// --- statements -------------------------------------------------------------------------------------

QString DatasetTable::whereKey(const QVariant& key) const {
    return QStringLiteral(" WHERE %1=%2").arg(m_identity, literal(key));
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
    RowKeys known = m_keys;
    known.remove(row);
    // A row that was stored and could not be found again would be stored twice by the next attempt.
    std::optional<Transaction> transaction;
    if (!connection->inTransaction())
        transaction.emplace(*connection);
    connection->execute(QStringLiteral("INSERT INTO ") + bracketed(name) + content);
    const QVariant key = addedKey(known, values);
    if (transaction)
        transaction->commit();
    m_keys.replace(row, key);
    m_newRow = -1;
    forget(row);
}

QVariant DatasetTable::addedKey(const RowKeys& known, const QVariantList& values) const {
    const RowKeys now = readKeys(whereCondition());
    const QList<QVariant> added = known.added(now);
    if (added.size() == 1)
        return added.first();
    // Somebody else added rows since the keys were read, or deleted one whose place ours has taken: ours is
    // the one that holds our values.
    QStringList candidates;
    for (const QVariant& key : added.isEmpty() ? RowKeys().added(now) : added)
        candidates.append(literal(key));
    if (!candidates.isEmpty()) {
        for (QVariantList& row : connection->execute(reading(candidates)).rows) {
            const QVariant key = row.takeFirst();
            bool same = row.size() >= values.size();
            for (int i = 0; same && i < values.size(); ++i)
                same = !values[i].isValid() || m_columns[i].identity || sameValue(row[i], values[i]);
            if (same)
                return key;
        }
    }
    if (added.isEmpty())
        throw Refusal(QStringLiteral(
            "رديف تازه پس از ثبت پيدا نشد و ثبت نشد. کليد ESC را بزنيد و فهرست را دوباره باز کنيد."));
    return added.last();
}

void DatasetTable::update(int row, const QList<int>& changed, const QVariantList& values, Reads reads) {
    QStringList settings;
    QVariant key = m_keys.at(row);
    const QString where = whereKey(key);
    for (const int column : changed) {
        const QString bracketedName = bracketed(m_columns[column].name);
        settings.append(bracketedName + u'=' + literal(values[column]));
        if (bracketedName.compare(m_identity, Qt::CaseInsensitive) == 0) {
            key = values[column];
            reads = Reads::Later;
        }
    }
    Window window = emptyWindow(row / kWindowRows);
    const QStringList keys = reads == Reads::Back ? keysOf(window) : QStringList();
    const ResultSet result = connection->execute(QStringLiteral("UPDATE %1 SET ").arg(bracketed(name)) +
                                                 settings.join(u',') + where + u' ' + reading(keys));
    if (result.affected == 0)
        refuseVanished();
    m_keys.replace(row, key);
    forget(row);
    if (reads == Reads::Later)
        return;
    fill(window, keys, result);
    m_windows.push_front(std::move(window));
}

void DatasetTable::erase(int row) {
    const ResultSet result =
        connection->execute(QStringLiteral("DELETE FROM ") + bracketed(name) + whereKey(m_keys.at(row)));
    if (result.affected == 0)
        refuseVanished();
    removePlace(row);
}

}  // namespace data
