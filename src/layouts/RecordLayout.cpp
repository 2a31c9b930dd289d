#include "RecordLayout.h"

#include <algorithm>

#include "CodePage.h"
#include "Query.h"

namespace layouts {
namespace {

constexpr int kLongestName = 10;
constexpr int kLongestText = 254, kLongestNumber = 18;
constexpr int kLongestRecord = 4000;

bool isText(const LayoutRow& row) {
    return row.type != QLatin1String("N") && row.type != QLatin1String("F");
}

QString sampleOf(const LayoutRow& row) {
    if (isText(row))
        return QStringLiteral("نمونه");
    if (row.type == QLatin1String("F") || row.decimals > 0)
        return QString::number(12.5, 'f', qBound(1, row.decimals, kLongestNumber));
    return QStringLiteral("1234567890").left(row.length);
}

// Numbers stand at the end of their room and texts at its beginning, unless the row says otherwise.
QString padded(const LayoutRow& row, const QString& value) {
    const QChar padding = row.padding.isEmpty() ? u' ' : row.padding.front();
    const bool atEnd =
        row.alignment == QLatin1String("R") || (row.alignment != QLatin1String("L") && !isText(row));
    const int room = qMin(row.length, kLongestRecord);
    const QString cut = value.left(room);
    return atEnd ? cut.rightJustified(room, padding) : cut.leftJustified(room, padding);
}

bool beginsWithLetter(const QString& name) {
    const char16_t first = name.front().toUpper().unicode();
    return first >= u'A' && first <= u'Z';
}

class Notes {
public:
    QStringList of(const LayoutRow& row, qint64 end) {
        QStringList notes;
        const QString name = row.name.toLower();
        if (!name.isEmpty()) {
            if (m_names.contains(name))
                notes.append(QStringLiteral("نام «%1» تكراري است").arg(row.name));
            if (name.size() > kLongestName)
                notes.append(QStringLiteral("نام از %1 حرف بلندتر است").arg(kLongestName));
            else if (!beginsWithLetter(name))
                notes.append(QStringLiteral("نام با حرف لاتين آغاز نمي شود"));
        }
        const int longest = isText(row) ? kLongestText : kLongestNumber;
        if (row.length > longest)
            notes.append(QStringLiteral("طول از %1 بيشتر است").arg(longest));
        if (row.fixed.size() > row.length)
            notes.append(QStringLiteral("مقدار ثابت بريده مي شود"));
        if (!isText(row) && row.decimals > 0 && row.decimals > row.length - 2)
            notes.append(QStringLiteral("%1 رقم اعشار جا نمي شود").arg(row.decimals));
        if (row.order > 0 && m_orders.contains(row.order))
            notes.append(QStringLiteral("ترتيب %1 تكراري است").arg(row.order));
        if (end > kLongestRecord && !std::exchange(m_tooLong, true))
            notes.append(QStringLiteral("ركورد از %1 بايت بلندتر است").arg(kLongestRecord));
        m_names.insert(name);
        m_orders.insert(row.order);
        return notes;
    }

private:
    QSet<QString> m_names;
    QSet<int> m_orders;
    bool m_tooLong = false;
};

}  // namespace

QString RecordLayout::text() const {
    QString text;
    for (const RecordField& field : fields)
        text += field.value;
    return text.left(kLongestRecord);
}

qsizetype RecordLayout::notes() const {
    qsizetype count = 0;
    for (const RecordField& field : fields)
        count += field.notes.size();
    return count;
}

QList<LayoutRow> layoutRows(const data::Dataset& rows) {
    QList<LayoutRow> layout;
    for (int row = 0; row < rows.recordCount(); ++row) {
        const auto value = [&](const char* column) {
            const int index = rows.columnIndex(QLatin1String(column));
            return index < 0 ? QVariant() : rows.valueAt(row, index);
        };
        const auto text = [&](const char* column) { return data::valueText(value(column)); };
        layout.append({text("F_DES").trimmed(), text("F_NAME").trimmed(), value("F_LEN").toInt(),
                       value("F_RAJ").toInt(), text("F_TYPE").trimmed(), text("F_FIX"),
                       text("F_FIELD").trimmed(), text("F_LR").trimmed(), text("F_LRF"),
                       value("F_DEC").toInt()});
    }
    return layout;
}

RecordLayout recordOf(const QList<LayoutRow>& rows, const QHash<QString, QString>& sources) {
    QList<int> order;
    for (int row = 0; row < rows.size(); ++row)
        if (rows[row].length > 0)
            order.append(row);
    std::stable_sort(order.begin(), order.end(), [&](int one, int other) {
        const int first = rows[one].order, second = rows[other].order;
        return first > 0 && (second <= 0 || first < second);
    });
    RecordLayout record;
    Notes notes;
    for (const int place : order) {
        const LayoutRow& row = rows[place];
        const QString source = row.source.toLower();
        const QString value = !row.fixed.isEmpty()       ? row.fixed
                              : sources.contains(source) ? sources.value(source)
                                                         : sampleOf(row);
        record.fields.append({place + 1, row.title, row.name, row.type, record.length + 1, row.length,
                              padded(row, value), notes.of(row, record.length + row.length)});
        record.length += row.length;
    }
    return record;
}

}  // namespace layouts
