#include "RowKeys.h"

#include <QSet>
#include <algorithm>

#include "Dataset.h"

namespace data {

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

}  // namespace data
