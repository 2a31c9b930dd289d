// How a dataset changes its rows: one at a time in its edit buffer, or many in one transaction.
#include "DatasetPrivate.h"

namespace data {

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
    endEditFor(recordCount() - 1);
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
    const QVariantList values = d->values;
    const bool modified = d->modified;
    const auto takeBackRow = [&] {
        d->table = before;
        d->values = values;
        d->modified = modified;
        Q_EMIT rowChanged(d->row);
    };
    try {
        OwnTransaction transaction(*connection());
        call(beforeStore);
        write();
        call(duringPost);
        d->foresee(d->row);
        transaction.commit();
    } catch (const RowChanged&) {
        takeBackRow();
        takeStored();
        throw;
    } catch (...) {
        takeBackRow();
        throw;
    }
}

// The row as somebody else has stored it, with what was typed here: stored again, it knows of both.
void Dataset::takeStored() {
    const QVariantList stored = d->table.readAgain(d->row, d->original);
    for (int i = 0; i < stored.size(); ++i)
        if (sameValue(d->values[i], d->original[i]))
            d->values[i] = stored[i];
    d->original = stored;
    d->modified = d->values != d->original;
    Q_EMIT rowChanged(d->row);
}

void Dataset::write() {
    if (d->state == State::Insert)
        return d->table.insert(d->row, d->values);
    QList<int> changed;
    for (int i = 0; i < d->values.size(); ++i)
        if (!sameValue(d->values[i], d->original[i]))
            changed.append(i);
    if (!changed.isEmpty())
        d->table.update(d->row, changed, d->values, d->original);
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
    endEdit();
}

void Dataset::endEdit() {
    if (!d->editing())
        return;
    if (d->modified)
        post();
    else
        cancel();
}

void Dataset::deferReading() {
    d->table.deferReading();
}

bool Dataset::modified() const {
    return d->modified;
}

void Dataset::updateSilently(int row, const QString& column, const QVariant& value) {
    const int index = columnIndex(column);
    if (index < 0 || row < 0 || row >= recordCount())
        return;
    QVariantList values = d->table.values(row);
    values[index] = columnValue(columns()[index], value);
    d->table.updateBlindly(row, index, values);
    if (row == d->row && d->editing())
        d->values[index] = d->original[index] = values[index];
    Q_EMIT rowChanged(row);
}

QList<QVariantList> Dataset::heldRows() const {
    return d->table.heldRows();
}

void Dataset::renew(const std::function<void(QVariantList&)>& change) {
    d->table.forgetAll(change);
    if (d->editing()) {
        change(d->values);
        change(d->original);
        d->modified = d->values != d->original;
    }
    Q_EMIT rowsReset();
}

}  // namespace data
