#include "Criterion.h"

#include <QRegularExpression>

#include "CodePage.h"
#include "Connection.h"

namespace rowsieve {
namespace {

constexpr QChar kFarsiKaf(0x06A9);
constexpr QChar kArabicKaf(0x0643);

QList<Comparison> textComparisons() {
    // A row without a text differs from every text.
    return {{"برابر", "%1=%2", "«%1» برابر «%2» باشد"},
            {"مخالف", "IsNull(%1,'')<>%2", "«%1» برابر «%2» نباشد"},
            {"شامل", "%1 Like %2", "«%1» شامل «%2» باشد", Comparison::Value::Part},
            {"شروع با", "%1 Like %2", "«%1» با «%2» شروع شود", Comparison::Value::Beginning},
            {"خالي", "IsNull(%1,'')=''", "«%1» خالي باشد", Comparison::Value::None},
            {"غير خالي", "IsNull(%1,'')<>''", "«%1» خالي نباشد", Comparison::Value::None}};
}

QList<Comparison> numberComparisons() {
    return {{"برابر", "%1=%2", "«%1» برابر %2 باشد"},
            {"مخالف", "(%1<>%2 Or %1 Is Null)", "«%1» برابر %2 نباشد"},
            {"کوچکتر", "%1<%2", "«%1» کوچکتر از %2 باشد"},
            {"کوچکتر يا برابر", "%1<=%2", "«%1» حداکثر %2 باشد"},
            {"بزرگتر", "%1>%2", "«%1» بزرگتر از %2 باشد"},
            {"بزرگتر يا برابر", "%1>=%2", "«%1» حداقل %2 باشد"},
            {"خالي", "%1 Is Null", "«%1» خالي باشد", Comparison::Value::None},
            {"غير خالي", "%1 Is Not Null", "«%1» خالي نباشد", Comparison::Value::None}};
}

QList<Comparison> markComparisons() {
    const QString mark = data::quoted(data::kMark);
    return {{"علامت دارد", "%1=" + mark, "«%1» علامت داشته باشد", Comparison::Value::None},
            {"علامت ندارد", "IsNull(%1,'')<>" + mark, "«%1» علامت نداشته باشد", Comparison::Value::None}};
}

// Wildcards stand for themselves, and either kaf for both.
QString patternOf(const QString& text) {
    QString pattern;
    for (const QChar character : text) {
        if (character == u'%' || character == u'_' || character == u'[')
            pattern += u'[' + QString(character) + u']';
        else if (character == kFarsiKaf || character == kArabicKaf)
            pattern += u'[' + QString(kArabicKaf) + kFarsiKaf + u']';
        else
            pattern += character;
    }
    return pattern;
}

QString folded(const QString& typed) {
    return data::foldDigits(typed);
}

QString conditionOf(const Criterion& criterion) {
    const Comparison& comparison = criterion.comparison;
    QString column = data::bracketed(criterion.field.name);
    QString value;
    if (!comparison.takesValue()) {
        // Nothing to compare with.
    } else if (criterion.field.sort == ColumnSort::Number) {
        value = numberOf(criterion.value).value_or(QString());
    } else if (comparison.value != Comparison::Value::Whole) {
        const bool contains = comparison.value == Comparison::Value::Part;
        value = data::quoted((contains ? QStringLiteral("%") : QString()) +
                             patternOf(folded(criterion.value)) + u'%');
    } else {
        QString text = folded(criterion.value);
        if (text.contains(kFarsiKaf) || text.contains(kArabicKaf)) {
            text.replace(kFarsiKaf, kArabicKaf);
            column = QStringLiteral("Replace(%1,'%2','%3')").arg(column, kFarsiKaf, kArabicKaf);
        }
        value = data::quoted(text);
    }
    // Both at once: a value may hold what looks like a place for the next.
    return comparison.takesValue() ? comparison.condition.arg(column, value)
                                   : comparison.condition.arg(column);
}

QString sentenceOf(const Criterion& criterion) {
    const Comparison& comparison = criterion.comparison;
    const QString& title = criterion.field.title;
    return comparison.takesValue() ? comparison.sentence.arg(title, criterion.value.trimmed())
                                   : comparison.sentence.arg(title);
}

}  // namespace

const QList<Comparison>& comparisonsOf(ColumnSort sort) {
    static const QList<Comparison> texts = textComparisons(), numbers = numberComparisons(),
                                   marks = markComparisons();
    return sort == ColumnSort::Text ? texts : sort == ColumnSort::Number ? numbers : marks;
}

QList<Field> fieldsOf(const widgets::DataGrid& grid) {
    QList<Field> fields;
    const data::Dataset& rows = *grid.dataset();
    for (const int column : grid.visibleOrder()) {
        const widgets::GridColumn& shown = grid.gridColumns()[column];
        const data::ColumnInfo stored = rows.columns().value(rows.columnIndex(shown.field));
        Field field{stored.name, shown.title.trimmed()};
        if (shown.kind == widgets::ColumnKind::Mark)
            field.sort = ColumnSort::Mark;
        else if (stored.type == data::ColumnType::Integer || stored.type == data::ColumnType::Real)
            field.sort = ColumnSort::Number;
        if (!stored.name.isEmpty() && stored.type != data::ColumnType::Binary)
            fields.append(field);
    }
    return fields;
}

std::optional<QString> numberOf(const QString& typed) {
    QString number = data::foldDigits(typed).trimmed();
    number.replace(QChar(0x066C), u',').replace(QChar(0x066B), u'.');
    static const QRegularExpression shape(
        QStringLiteral("^[+-]?([0-9]+|[0-9]{1,3}(,[0-9]{3})+)?(\\.[0-9]+)?$"));
    if (!shape.match(number).hasMatch() || !number.contains(QRegularExpression(QStringLiteral("[0-9]"))))
        return {};
    number.remove(u',').remove(u'+');
    return number;
}

QString objection(const Criterion& criterion) {
    if (!criterion.comparison.takesValue())
        return {};
    if (criterion.value.trimmed().isEmpty())
        return QStringLiteral("مقدار «%1» نوشته نشده است. آن را بنويسيد يا اين شرط را حذف کنيد.")
            .arg(criterion.field.title);
    if (criterion.field.sort == ColumnSort::Number && !numberOf(criterion.value))
        return QStringLiteral("«%2» عدد نيست. براي «%1» عدد بنويسيد.")
            .arg(criterion.field.title, criterion.value.trimmed());
    return {};
}

QString conditionOf(const QList<Criterion>& criteria) {
    QString condition;
    for (const Criterion& criterion : criteria) {
        if (!condition.isEmpty())
            condition += criterion.afterOr ? QStringLiteral(" Or ") : QStringLiteral(" And ");
        condition += conditionOf(criterion);
    }
    return condition;
}

QString sentenceOf(const QList<Criterion>& criteria) {
    QList<QStringList> groups;
    for (const Criterion& criterion : criteria) {
        if (groups.isEmpty() || criterion.afterOr)
            groups.append(QStringList());
        groups.last().append(sentenceOf(criterion));
    }
    QStringList alternatives;
    for (const QStringList& group : groups) {
        const QString text = group.join(QStringLiteral(" و "));
        alternatives.append(groups.size() > 1 && group.size() > 1 ? u'(' + text + u')' : text);
    }
    return alternatives.join(QStringLiteral(" يا "));
}

}  // namespace rowsieve
