// What a dataset knows its rows by.
#pragma once

#include <QList>
#include <QVariant>
#include <vector>

namespace data {

// Row keys in row order. Integers, the common case, take eight bytes each.
class RowKeys {
public:
    int size() const { return static_cast<int>(m_compact ? m_integers.size() : m_others.size()); }
    void append(const QVariant& key);
    void insert(int place, const QVariant& key);
    void replace(int place, const QVariant& key);
    void remove(int place);
    QVariant at(int place) const;
    int indexOf(const QVariant& key) const;  // -1 when it is not there
    // Whether they are numbers, each above the one before it.
    bool ascend() const;
    // Those of `others` that are not among these.
    QList<QVariant> added(const RowKeys& others) const;

private:
    void admit(const QVariant& key);

    bool m_compact = true;
    std::vector<qlonglong> m_integers;
    QList<QVariant> m_others;
};

}  // namespace data
