#include "Dataset.h"

#include <optional>

#include "DatasetTable.h"
#include "Errors.h"
#include "Query.h"

namespace data {

struct Dataset::Private {
    DatasetTable table;
    State state = State::Closed;
    int row = -1;
    int rowBeforeInsert = -1;
    // The row in edit: as it is now, and as it was.
    QVariantList values, original;
    bool modified = false;

    bool editing() const { return state == State::Edit || state == State::Insert; }
    // Fetches a row that is about to be shown, while a refusal can still stop what leads to it.
    void foresee(int place) {
        if (place >= 0 && place < table.size())
            table.values(place);
    }
    void refuseWhileRestricted() const {
        if (!table.restriction.isEmpty())
            throw Refusal(QStringLiteral("فهرست محدود شده است. براي تغيير، نخست همه رديف ها را نشان دهيد."));
    }
};

namespace {

void call(const Dataset::Handler& handler) {
    if (handler)
        handler();
}

// A transaction of this step's own, unless it is part of another.
class OwnTransaction {
public:
    explicit OwnTransaction(Connection& connection) {
        if (!connection.inTransaction())
            m_transaction.emplace(connection);
    }
    void commit() {
        if (m_transaction)
            m_transaction->commit();
    }

private:
    std::optional<Transaction> m_transaction;
};

}  // namespace

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

// --- changes ----------------------------------------------------------------------------------------

void Dataset::edit() {
    if (d->state != State::Browse)
        return;
    if (isEmpty())
        return insert();
    d->refuseWhileRestricted();
    call(beforeEdit);
    const QVariantList values = d->table.values(d->row);
    d->values = d->original = values;
    d->modified = false;
    enterState(State::Edit);
    call(afterEdit);
}

void Dataset::insert() {
    startInsert([this] { return qMax(0, d->row); });
}

void Dataset::append() {
    startInsert([this] { return recordCount(); });
}

void Dataset::startInsert(const std::function<int()>& place) {
    if (!active())
        return;
    d->refuseWhileRestricted();
    foreseeMove(recordCount() - 1);
    checkBrowseMode();
    call(beforeInsert);
    call(beforeScroll);
    d->rowBeforeInsert = d->row;
    d->row = place();
    d->table.insertPlace(d->row);
    d->values = d->original = QVariantList(columns().size());
    d->modified = false;
    enterState(State::Insert);
    Q_EMIT rowInserted(d->row);
    Q_EMIT cursorMoved();
    takeDefaults();
    call(afterScroll);
}

void Dataset::takeDefaults() {
    const auto settle = [this] {
        if (d->state != State::Insert)
            return;
        d->original = d->values;
        d->modified = false;
    };
    try {
        call(afterInsert);
    } catch (...) {
        settle();
        throw;
    }
    settle();
}

void Dataset::post() {
    if (!active())
        return;
    call(updateRecord);
    if (!d->editing())
        return;
    call(beforePost);
    store();
    const int row = d->row;
    enterState(State::Browse);
    Q_EMIT rowChanged(row);
    call(afterPost);
}

void Dataset::store() {
    const DatasetTable before = d->table;
    try {
        OwnTransaction transaction(*connection());
        write();
        call(duringPost);
        d->foresee(d->row);
        transaction.commit();
    } catch (...) {
        d->table = before;
        throw;
    }
}

void Dataset::write() {
    if (d->state == State::Insert)
        return d->table.insert(d->row, d->values);
    QList<int> changed;
    for (int i = 0; i < d->values.size(); ++i)
        if (!sameValue(d->values[i], d->original[i]))
            changed.append(i);
    if (!changed.isEmpty())
        d->table.update(d->row, changed, d->values, DatasetTable::Reads::Back);
}

void Dataset::cancel() {
    if (d->state == State::Edit) {
        const int row = d->row;
        enterState(State::Browse);
        Q_EMIT rowChanged(row);
        call(afterCancel);
    } else if (d->state == State::Insert) {
        call(beforeScroll);
        dropRow([this] { d->table.removePlace(d->row); }, d->rowBeforeInsert);
        call(afterCancel);
        call(afterScroll);
    }
}

void Dataset::deleteRow() {
    if (d->state == State::Insert)
        return cancel();
    if (!active() || isEmpty())
        return;
    d->refuseWhileRestricted();
    call(beforeDelete);
    call(beforeScroll);
    const DatasetTable before = d->table;
    try {
        OwnTransaction transaction(*connection());
        d->table.erase(d->row);
        d->foresee(qMin(d->row, recordCount() - 1));
        transaction.commit();
    } catch (...) {
        d->table = before;
        throw;
    }
    dropRow([] {}, d->row);
    call(afterDelete);
    call(afterScroll);
}

void Dataset::dropRow(const Handler& remove, int nextRow) {
    const int removed = d->row;
    remove();
    d->row = qMin(nextRow, recordCount() - 1);
    enterState(State::Browse);
    Q_EMIT rowRemoved(removed);
    Q_EMIT cursorMoved();
}

void Dataset::transact(const Handler& change, After after) {
    d->refuseWhileRestricted();
    const Private before = *d;
    try {
        OwnTransaction transaction(*connection());
        change();
        const bool stays = after == After::SameRow && d->row >= 0 && d->state != State::Insert;
        const QVariant key = stays ? d->table.key(d->row) : QVariant();
        d->table.read();
        const int found = key.isValid() ? d->table.rowOf(key) : 0;
        d->row = qMin(found >= 0 ? found : d->row, recordCount() - 1);
        d->foresee(d->row);
        transaction.commit();
    } catch (...) {
        takeBack(before);
        throw;
    }
    enterState(State::Browse);
    Q_EMIT rowsReset();
    call(afterScroll);
}

// After a change that was undone. Views that have seen nothing of it keep what is being typed.
void Dataset::takeBack(const Private& before) {
    const bool seen =
        d->state != before.state || d->row != before.row || d->table.size() != before.table.size();
    *d = before;
    if (!seen)
        return;
    Q_EMIT rowsReset();
    Q_EMIT stateChanged();
}

void Dataset::checkBrowseMode() {
    if (!active())
        return;
    call(updateRecord);
    if (!d->editing())
        return;
    if (d->modified)
        post();
    else
        cancel();
}

bool Dataset::modified() const {
    return d->modified;
}

void Dataset::setModified(bool modified) {
    d->modified = modified && d->editing();
}

void Dataset::updateSilently(int row, const QString& column, const QVariant& value) {
    const int index = columnIndex(column);
    if (index < 0 || row < 0 || row >= recordCount())
        return;
    QVariantList values = d->table.values(row);
    values[index] = columnValue(columns()[index], value);
    d->table.update(row, {index}, values, DatasetTable::Reads::Later);
    if (row == d->row && d->editing())
        d->values[index] = d->original[index] = values[index];
    Q_EMIT rowChanged(row);
}

void Dataset::renew(const std::function<void(QVariantList&)>& change) {
    d->table.forgetAll();
    if (d->editing()) {
        change(d->values);
        change(d->original);
        d->modified = d->values != d->original;
    }
    Q_EMIT rowsReset();
}

}  // namespace data
