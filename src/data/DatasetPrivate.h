// What the parts of Dataset share.
#pragma once

#include <optional>

#include "Dataset.h"
#include "DatasetTable.h"
#include "Errors.h"

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

// Runs an event's handler where there is one.
inline void call(const Dataset::Handler& handler) {
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

}  // namespace data
