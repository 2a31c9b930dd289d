// How the codes and places of a page's rows change when a deletion renumbers them or a work copy is
// confirmed; what refers to the rows follows.
#pragma once

#include <QList>
#include <QMap>
#include <QSet>

namespace definition {

// One row of a page.
struct ItemCode {
    qint64 now = 0;
    qint64 before = 0;    // 0 for a row that is new
    int placeBefore = 0;  // among the rows as they were, from 1; 0 for a row that is new
};

// Of two rows with one code, what refers to it belongs to the first. 0 is no code.
class Renumbering {
public:
    Renumbering() = default;
    // `items` the rows in their order, `before` the codes of all rows as they were, in order.
    Renumbering(const QList<ItemCode>& items, const QList<qint64>& before);

    bool isEmpty() const;
    // The code that the row has now which had this one; 0 for a row that is gone, and for a code that was
    // no row's and is one's now: nobody is given to a row that he did not choose.
    qint64 now(qint64 code) const;

    // Old codes and new ones, of rows whose code changed.
    const QMap<qint64, qint64>& moved() const { return m_moved; }
    // Codes of rows that are gone.
    const QSet<qint64>& gone() const { return m_gone; }
    // Codes that were no row's: those that a row with another code has taken, and those of new rows.
    const QSet<qint64>& taken() const { return m_taken; }
    const QSet<qint64>& fresh() const { return m_fresh; }
    // By place, where another row or none stands now: the place before of the row that stands there, or 0
    // for a new row and for none.
    const QMap<int, int>& places() const { return m_places; }
    // The places before of rows that have another one now, or are gone.
    QList<int> leftPlaces() const;

private:
    void comparePlaces(const QList<ItemCode>& items);

    QMap<qint64, qint64> m_moved;
    QSet<qint64> m_gone, m_taken, m_fresh;
    QMap<int, int> m_places;
    int m_placesBefore = 0;
};

}  // namespace definition
