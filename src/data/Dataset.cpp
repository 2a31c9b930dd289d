#include "DatasetPrivate.h"
#include "Query.h"

namespace data {

Dataset::Dataset(QObject* parent) : QObject(parent), d(std::make_unique<Private>()) {}

Dataset::~Dataset() = default;

// --- source -----------------------------------------------------------------------------------------

void Dataset::setConnection(Connection* connection) {
    if (connection != d->table.connection)
        close();
    d->table.connection = connection;
}

Connection* Dataset::connection() const {
    return d->table.connection;
}

void Dataset::setTableName(const QString& table) {
    close();
    d->table.name = table;
}

QString Dataset::selection(const QStringList& fields) const {
    return d->table.selection(fields);
}

QString Dataset::tableName() const {
    return d->table.name;
}

void Dataset::setIndexFieldNames(const QString& fields) {
    if (fields == d->table.orderFields)
        return;
    reread([&] { d->table.orderFields = fields; });
}

QString Dataset::indexFieldNames() const {
    return d->table.orderFields;
}

void Dataset::setRestriction(const QString& condition) {
    if (condition == d->table.restriction)
        return;
    reread([&] { d->table.restriction = condition; });
}

void Dataset::setFilter(const QString& condition) {
    if (condition == d->table.filter)
        return;
    reread([&] { d->table.filter = condition; });
}

QString Dataset::restriction() const {
    return d->table.restriction;
}

QString Dataset::condition() const {
    return d->table.condition();
}

void Dataset::open() {
    if (active())
        return;
    d->table.read();
    d->row = d->table.size() > 0 ? 0 : -1;
    enterState(State::Browse);
    Q_EMIT rowsReset();
}

void Dataset::close() {
    if (!active())
        return;
    d->table.clear();
    d->row = -1;
    enterState(State::Closed);
    Q_EMIT rowsReset();
}

void Dataset::refresh() {
    if (active())
        reread([] {});
}

void Dataset::reread(const Handler& change) {
    if (!active())
        return change();
    checkBrowseMode();
    const QVariant key = d->row >= 0 ? d->table.key(d->row) : QVariant();
    // A condition or order that the server refuses leaves the dataset with what it had.
    const QString fields = d->table.orderFields;
    const QString filter = d->table.filter, restriction = d->table.restriction;
    try {
        change();
        d->table.read();
    } catch (...) {
        d->table.orderFields = fields;
        d->table.filter = filter;
        d->table.restriction = restriction;
        throw;
    }
    const int found = key.isValid() ? d->table.rowOf(key) : 0;
    d->row = qMin(found >= 0 ? found : d->row, d->table.size() - 1);
    Q_EMIT rowsReset();
}

Dataset::State Dataset::state() const {
    return d->state;
}

void Dataset::enterState(State state) {
    const bool changes = state != d->state;
    d->state = state;
    if (!d->editing()) {
        d->values.clear();
        d->original.clear();
        d->modified = false;
    }
    if (changes)
        Q_EMIT stateChanged();
}

const QList<ColumnInfo>& Dataset::columns() const {
    return d->table.columns();
}

int Dataset::columnIndex(const QString& name) const {
    return d->table.columnIndex(name);
}

// --- cursor -----------------------------------------------------------------------------------------

int Dataset::recordCount() const {
    return d->table.size();
}

int Dataset::row() const {
    return d->row;
}

void Dataset::first() {
    scroll(0);
}

void Dataset::last() {
    scroll(recordCount() - 1);
}

void Dataset::next() {
    scroll(d->row + 1);
}

void Dataset::prior() {
    scroll(d->row - 1);
}

void Dataset::moveTo(int row) {
    if (row != d->row)
        scroll(row);
}

void Dataset::scroll(int target) {
    if (!active())
        return;
    const int place = d->row;
    const int count = recordCount();
    foreseeMove(target);
    checkBrowseMode();
    // An untouched new row went away under the move, and the rows behind it moved up.
    if (recordCount() < count && target > place)
        --target;
    if (isEmpty())
        return;
    target = qBound(0, target, recordCount() - 1);
    if (target == d->row)
        return;
    call(beforeScroll);
    d->row = target;
    Q_EMIT cursorMoved();
    call(afterScroll);
}

// A move stores the row first: where what it leads to cannot be read, nothing is stored either.
void Dataset::foreseeMove(int target) {
    call(updateRecord);
    if (d->modified)
        d->foresee(qBound(0, target, recordCount() - 1));
}

// --- values -----------------------------------------------------------------------------------------

QVariant Dataset::value(int column) const {
    return valueAt(d->row, column);
}

QString Dataset::text(const QString& column) const {
    return valueText(value(column));
}

QVariant Dataset::valueAt(int row, int column) const {
    if (row < 0 || row >= recordCount() || column < 0 || column >= columns().size())
        return {};
    if (row == d->row && d->editing())
        return d->values[column];
    return d->table.values(row)[column];
}

QVariant Dataset::originalValue(int column) const {
    return d->editing() ? d->original.value(column) : value(column);
}

int Dataset::storedPlace() const {
    return isEmpty() || d->state == State::Insert ? 0 : d->table.storedPlace(d->row) + 1;
}

QVariant Dataset::storedValue(const QString& column) const {
    const int index = columnIndex(column);
    return index < 0 || isEmpty() || d->state == State::Insert ? QVariant()
                                                               : d->table.storedValues(d->row)[index];
}

void Dataset::setValue(const QString& column, const QVariant& value) {
    setValue(columnIndex(column), value);
}

void Dataset::setValue(int column, const QVariant& value) {
    if (!active() || column < 0 || column >= columns().size())
        return;
    const QVariant converted = columnValue(columns()[column], value);
    edit();
    if (!d->editing() || sameValue(d->values[column], converted))
        return;
    d->values[column] = converted;
    d->modified = d->values != d->original;
    Q_EMIT rowChanged(d->row);
}

}  // namespace data
