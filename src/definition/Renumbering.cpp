#include "Renumbering.h"

namespace definition {

Renumbering::Renumbering(const QList<ItemCode>& items, const QList<qint64>& before)
    : m_placesBefore(static_cast<int>(before.size())) {
    QSet<qint64> kept;
    const QSet<qint64> known(before.begin(), before.end());
    for (const ItemCode& item : items) {
        if (item.before == 0 || kept.contains(item.before))
            continue;
        kept.insert(item.before);
        if (item.now == 0)
            m_gone.insert(item.before);
        else if (item.now != item.before)
            m_moved.insert(item.before, item.now);
    }
    m_gone += known - kept;
    m_gone.remove(0);
    for (const ItemCode& item : items) {
        if (item.now == 0 || known.contains(item.now) || kept.contains(item.now))
            continue;
        (item.before == 0 ? m_fresh : m_taken).insert(item.now);
    }
    comparePlaces(items);
}

void Renumbering::comparePlaces(const QList<ItemCode>& items) {
    for (int place = 1; place <= qMax<qsizetype>(items.size(), m_placesBefore); ++place) {
        const int from = place <= items.size() ? items[place - 1].placeBefore : 0;
        if (from != place)
            m_places.insert(place, from);
    }
}

bool Renumbering::isEmpty() const {
    return m_moved.isEmpty() && m_gone.isEmpty() && m_taken.isEmpty() && m_fresh.isEmpty() &&
           m_places.isEmpty();
}

qint64 Renumbering::now(qint64 code) const {
    if (m_gone.contains(code) || m_taken.contains(code) || m_fresh.contains(code))
        return 0;
    return m_moved.value(code, code);
}

QList<int> Renumbering::leftPlaces() const {
    QList<int> left;
    for (const auto [place, from] : m_places.asKeyValueRange())
        if (place <= m_placesBefore)
            left.append(place);
    return left;
}

}  // namespace definition
