#include "DatasetTable.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "Dataset.h"
#include "Errors.h"

namespace data {

int DatasetTable::columnIndex(const QString& column) const {
    for (int i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].name.compare(column, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QString DatasetTable::ofTable(const QString& column) const {
    return bracketed(name) + u'.' + column;
}

QString DatasetTable::orderClause() const {
    QStringList terms;
    for (const QString& term : orderFields.split(u';', Qt::SkipEmptyParts)) {
        static const QString down = QStringLiteral(" DESC");
        const QString field = term.trimmed();
        const bool descends = field.endsWith(down, Qt::CaseInsensitive);
        terms.append(ofTable(bracketed(descends ? field.chopped(down.size()).trimmed() : field)) +
                     (descends ? down : QString()));
    }
    // The server refuses a term that stands there twice, and a name that the selection has twice.
    const QString identity = m_identity.startsWith(u'[') ? ofTable(m_identity) : m_identity;
    if (hasIdentity() && !terms.contains(identity, Qt::CaseInsensitive))
        terms.append(identity);
    return terms.isEmpty() ? QString() : QStringLiteral(" ORDER BY ") + terms.join(u',');
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

void DatasetTable::knowIdentity() {
    if (m_identityOf == name && !name.isEmpty())
        return;
    m_identity = connection->rowIdentity(name);
    m_identityOf = name;
}

void DatasetTable::read() {
    m_defers = false;
    m_deferred.clear();
    knowIdentity();
    if (!hasIdentity())
        return readHeld();
    if (!m_isLong) {
        const Start start = startOf(connection->execute(startText()));
        if (start.whole) {
            m_columns = start.columns;
            m_blank = QVariantList(m_columns.size());
            m_keys = start.keys;
            m_newRow = -1;
            m_windows.clear();
            if (m_keys.size() > 0)
                m_windows.push_front({0, start.rows});
            return;
        }
    }
    const ResultSet shape =
        connection->execute(QStringLiteral("SELECT * FROM %1 WHERE 1=0").arg(bracketed(name)));
    const QString where = whereCondition();
    std::optional<RowKeys> keys = readNumberedKeys(shape.columns, where);
    if (!keys)
        keys = readKeys(where + orderClause());
    m_columns = shape.columns;
    m_blank = QVariantList(m_columns.size());
    m_keys = *std::move(keys);
    m_isLong = m_keys.size() > kWindowRows;
    m_newRow = -1;
    m_windows.clear();
}

QString DatasetTable::startText() const {
    return QStringLiteral("SELECT TOP %1 %2,* FROM %3%4%5")
        .arg(QString::number(kWindowRows + 1), m_identity, bracketed(name), whereCondition(), orderClause());
}

DatasetTable::Start DatasetTable::startOf(ResultSet found) const {
    Start start;
    start.columns = found.columns.mid(1);
    start.whole = found.rows.size() <= kWindowRows;
    for (QVariantList& row : found.rows) {
        start.keys.append(row.takeFirst());
        start.rows.append(std::move(row));
    }
    return start;
}

void DatasetTable::readHeld() {
    const ResultSet all =
        connection->execute("SELECT * FROM " + bracketed(name) + whereCondition() + orderClause());
    if (m_newRow >= 0)
        m_keys.remove(m_newRow);
    m_keys = m_held.take(all.rows, m_keys, !orderFields.trimmed().isEmpty());
    m_columns = all.columns;
    m_blank = QVariantList(m_columns.size());
    m_newRow = -1;
}

void DatasetTable::clear() {
    m_columns.clear();
    m_blank.clear();
    m_keys = {};
    m_held = {};
    m_identityOf.clear();
    m_newRow = -1;
    m_isLong = false;
    m_windows.clear();
}

void DatasetTable::forgetAll(const std::function<void(QVariantList&)>& change) {
    m_windows.clear();
    if (hasIdentity())
        return;
    m_stale = true;
    for (int row = 0; row < size(); ++row) {
        if (row == m_newRow)
            continue;
        QVariantList values = m_held.values(key(row).toLongLong());
        change(values);
        m_held.replace(key(row).toLongLong(), values);
    }
}

QList<QVariantList> DatasetTable::heldRows() const {
    QList<QVariantList> rows;
    for (int row = 0; !hasIdentity() && row < size(); ++row)
        if (row != m_newRow)
            rows.append(m_held.values(key(row).toLongLong()));
    return rows;
}

QString DatasetTable::selection(const QStringList& fields) const {
    QStringList names;
    for (const QString& field : fields)
        names.append(bracketed(field));
    // Rows whose keys go up need no sorting by the server.
    const QString order = hasIdentity() && m_keys.ascend() ? " ORDER BY " + m_identity : orderClause();
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
    if (const auto deferred = m_deferred.constFind(row); deferred != m_deferred.constEnd())
        return *deferred;
    if (!hasIdentity()) {
        if (std::exchange(m_stale, false))
            readHeld();
        return row == m_newRow ? m_blank : m_held.values(m_keys.at(row).toLongLong());
    }
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
    if (!hasIdentity())
        return connection->execute("SELECT TOP 1 * FROM " + bracketed(name) + whereRow(row))
            .rows.value(0, m_blank);
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
    m_keys.insert(row, m_keys.size() > 0 && hasIdentity() ? m_keys.at(0) : QVariant(qlonglong(0)));
    m_newRow = row;
    m_windows.clear();
}

void DatasetTable::removePlace(int row) {
    m_keys.remove(row);
    m_newRow = -1;
    m_windows.clear();
}

}  // namespace data
