#include <QLocale>
#include <QRegularExpression>

#include "CodePage.h"
#include "Dataset.h"
#include "DatasetTable.h"
#include "Errors.h"
#include "Query.h"

namespace data {
namespace {

// What an operator types, or copies from where numbers are grouped, as the plain number it stands for;
// empty when it is none.
QString plainNumber(QString typed) {
    static const QRegularExpression grouped(QStringLiteral("^[+-]?\\d{1,3}(,\\d{3})+(\\.\\d*)?$"));
    static const QRegularExpression plain(QStringLiteral("^[+-]?(\\d+(\\.\\d*)?|\\.\\d+)$"));
    if (grouped.match(typed).hasMatch())
        typed.remove(u',');
    return plain.match(typed).hasMatch() ? typed : QString();
}

QVariant numberValue(ColumnType type, const QString& text) {
    const QString typed = foldDigits(text).replace(QChar(0x066B), u'.').remove(QChar(0x066C)).trimmed();
    if (typed.isEmpty())
        return {};
    const QString number = plainNumber(typed);
    bool converts = false;
    if (type == ColumnType::Real) {
        const double real = number.toDouble(&converts);
        if (converts)
            return real;
        throw Refusal(QStringLiteral("«%1» عدد نيست.").arg(typed));
    }
    // "12.00" is a whole number as well.
    static const QRegularExpression emptyFraction(QStringLiteral("\\.0*$"));
    const qlonglong integer = QString(number).remove(emptyFraction).toLongLong(&converts);
    if (converts)
        return integer;
    throw Refusal(number.isEmpty()
                      ? QStringLiteral("«%1» عدد نيست.").arg(typed)
                      : QStringLiteral("در اين ستون فقط عدد صحيح پذيرفته مي شود: «%1»").arg(typed));
}

QString textValue(const ColumnInfo& column, const QString& text) {
    QString folded = foldToCodePage(foldDigits(text));
    if (column.length > 0 && folded.size() > column.length)
        throw Refusal(
            QStringLiteral("اين متن از اندازه ستون بيشتر است: حداکثر %1 نويسه.").arg(column.length));
    return folded;
}

}  // namespace

QVariant columnValue(const ColumnInfo& column, const QVariant& value) {
    if (!value.isValid() || value.isNull())
        // A text that was never assigned is still a text: empty, not missing.
        return value.metaType().id() == QMetaType::QString && column.type == ColumnType::Text
                   ? QVariant(QStringLiteral(""))
                   : QVariant();
    switch (column.type) {
        case ColumnType::Integer:
        case ColumnType::Real:
            return numberValue(column.type, valueText(value));
        case ColumnType::Text:
            return textValue(column, valueText(value));
        case ColumnType::DateTime:
            return value.toString().trimmed().isEmpty() ? QVariant()
                                                        : QVariant(foldDigits(value.toString().trimmed()));
        case ColumnType::Binary:
            return value.toByteArray();
    }
    return {};
}

bool sameValue(const QVariant& one, const QVariant& other) {
    return one.isValid() == other.isValid() && one == other;
}

QString literal(const QVariant& value) {
    if (!value.isValid() || value.isNull())
        return QStringLiteral("NULL");
    switch (value.metaType().id()) {
        case QMetaType::Bool:
            return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            return value.toString();
        case QMetaType::Double: {
            // Written out in full as far as a decimal literal reaches.
            const double number = value.toDouble();
            const bool plain = qAbs(number) < 1e15 && (number == 0 || qAbs(number) > 1e-15);
            return QString::number(number, plain ? 'f' : 'e', QLocale::FloatingPointShortest);
        }
        case QMetaType::QByteArray:
            return QStringLiteral("0x") + QString::fromLatin1(value.toByteArray().toHex().toUpper());
        default:
            return quoted(value.toString());
    }
}

QString insertion(const QString& table, const QList<ColumnInfo>& columns, const QVariantList& values) {
    QStringList names, literals;
    for (int column = 0; column < columns.size(); ++column) {
        names.append(bracketed(columns[column].name));
        literals.append(literal(values.value(column)));
    }
    return "Insert Into " + bracketed(table) + " (" + names.join(u',') + ") Values (" + literals.join(u',') +
           ')';
}

}  // namespace data
