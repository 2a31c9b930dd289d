#include "HeldRows.h"

#include <algorithm>

#include "Dataset.h"

namespace data {
namespace {

// Alike for rows with the same values, and for no others.
QString written(const QVariantList& values) {
    QStringList literals;
    for (const QVariant& value : values)
        literals.append(literal(value));
    return literals.join(u',');
}

// A pattern that only this text has.
QString likeThis(const QString& text) {
    QString pattern;
    for (const QChar character : text)
        pattern += character == u'%' || character == u'_' || character == u'['
                       ? u'[' + QString(character) + u']'
                       : QString(character);
    return pattern;
}

}  // namespace

RowKeys HeldRows::take(const QList<QVariantList>& rows, const RowKeys& before, bool inOrder) {
    // Of several rows with the same values the first is taken for the first.
    QHash<QString, QList<qlonglong>> known;
    QHash<qlonglong, int> places;
    for (int place = 0; place < before.size(); ++place) {
        const qlonglong number = before.at(place).toLongLong();
        places.insert(number, place);
        if (m_rows.contains(number))
            known[written(m_rows.value(number))].append(number);
    }
    QHash<qlonglong, QVariantList> now;
    QList<qlonglong> numbers;
    for (const QVariantList& row : rows) {
        QList<qlonglong>& same = known[written(row)];
        const qlonglong number = same.isEmpty() ? m_next++ : same.takeFirst();
        now.insert(number, row);
        numbers.append(number);
    }
    m_rows = now;
    // A server that gives them in another order than before has none.
    const auto place = [&](qlonglong number) { return places.value(number, places.size()); };
    QList<int> placesBefore;
    for (const qlonglong number : numbers)
        if (places.contains(number))
            placesBefore.append(places[number]);
    if (!inOrder && !std::is_sorted(placesBefore.begin(), placesBefore.end()))
        std::stable_sort(numbers.begin(), numbers.end(),
                         [&](qlonglong one, qlonglong other) { return place(one) < place(other); });
    RowKeys keys;
    for (const qlonglong number : numbers)
        keys.append(number);
    return keys;
}

const QVariantList& HeldRows::values(qlonglong number) const {
    static const QVariantList none;
    const auto row = m_rows.constFind(number);
    return row == m_rows.constEnd() ? none : *row;
}

qlonglong HeldRows::add(const QVariantList& values) {
    m_rows.insert(m_next, values);
    return m_next++;
}

QString holdsValues(const QList<ColumnInfo>& columns, const QVariantList& values) {
    QStringList terms;
    for (int i = 0; i < columns.size(); ++i) {
        const QString name = bracketed(columns[i].name);
        if (!values[i].isValid())
            terms.append(name + " IS NULL");
        else if (columns[i].type == ColumnType::Text && columns[i].length == 0)
            // A text without a limit can be looked into and not compared.
            terms.append(name + " LIKE " + quoted(likeThis(values[i].toString())));
        else if (columns[i].type != ColumnType::Binary)
            terms.append(name + u'=' + literal(values[i]));
    }
    return terms.join(QStringLiteral(" AND "));
}

}  // namespace data
