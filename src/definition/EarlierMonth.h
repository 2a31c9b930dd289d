// The rows that a page had in the nearest earlier month, as they read in this one: lists, marks and names of
// columns follow the items that they speak of, which are found by name.
#pragma once

#include <QHash>
#include <QMap>

#include "Connection.h"
#include "ReferenceMove.h"

namespace definition {

class DefinitionPage;

class EarlierMonth {
public:
    explicit EarlierMonth(DefinitionPage& page);

    const data::ResultSet& rows() const { return m_rows; }
    qint64 codeOf(const QVariantList& row) const { return row[m_code].toLongLong(); }
    QString nameOf(const QVariantList& row) const;

    // An item of this month that is about to be there.
    void addItem(const QString& name, qint64 code);
    // The row's values by their columns in lower case. What of it has no item this month is left out, and
    // named in `leftOut` where that is given.
    QHash<QString, QVariant> valuesHere(const QVariantList& row, QStringList* leftOut = nullptr) const;

    // Whether employees can have something under that code this month: a column, or records.
    bool hasHolders(qint64 code) const;

private:
    // The rows of a page that others speak of, there and here.
    struct Items {
        QList<std::pair<qint64, QString>> there;  // codes and names, in order
        QHash<QString, qint64> here;              // codes by bare name
        QHash<QString, int> placesHere;           // from 1
    };
    struct Spoken {
        const Reference* reference;
        QString table;
    };

    void follow(const Spoken& spoken, QHash<QString, QVariant>& values, QStringList* leftOut) const;
    void followMarks(const Reference& reference, const Items& items, QHash<QString, QVariant>& values,
                     QStringList* leftOut) const;

    const DefinitionPage& m_page;
    data::ResultSet m_rows;
    int m_code = -1, m_name = -1;
    QList<Spoken> m_spoken;        // what the page's rows say of others' rows and their own
    QMap<QString, Items> m_items;  // by table
    TableColumns m_columns;
};

}  // namespace definition
