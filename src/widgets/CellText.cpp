#include "CellText.h"

#include "CodePage.h"
#include "DatasetTable.h"
#include "Errors.h"

namespace widgets {
namespace {

constexpr int kLongestText = 32767, kLongestNumber = 64;  // characters

bool breaks(QChar character) {
    return (character >= u'\t' && character <= u'\r') || character == QChar(0x85) ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

QVariant valueOf(const data::ColumnInfo& stored, const GridColumn* column, const QString& text) {
    const bool isMark = column && column->kind == ColumnKind::Mark;
    if (isMark && !text.trimmed().isEmpty() && text.trimmed() != data::kMark)
        throw data::Refusal(QStringLiteral("در اين ستون فقط علامت پذيرفته مي شود."));
    return data::columnValue(stored, text);
}

}  // namespace

QString cellLine(QStringView text) {
    while (!text.isEmpty() && breaks(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && breaks(text.back()))
        text.chop(1);
    QString line;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool secondHalf = text[i] == u'\n' && text[i - 1] == u'\r';
        if (breaks(text[i]) && !secondHalf)
            line += u' ';
        else if (text[i].category() != QChar::Other_Control)
            line += text[i];
    }
    return line;
}

int cellLength(const data::ColumnInfo& stored, const GridColumn* column) {
    if (column && column->maxLength > 0)
        return column->maxLength;
    if (stored.length > 0)
        return stored.length;
    return stored.type == data::ColumnType::Text ? kLongestText : kLongestNumber;
}

void requireLength(qsizetype characters, int length) {
    if (characters > length)
        throw data::Refusal(QStringLiteral("اين متن از اندازه ستون بيشتر است: حداکثر %1 نويسه.").arg(length));
}

QVariant cellValue(const data::ColumnInfo& stored, const GridColumn* column, const QString& text,
                   int length) {
    try {
        requireLength(text.size(), length);
        return valueOf(stored, column, text);
    } catch (const data::Refusal&) {
        if (!column || column->refusal.isEmpty())
            throw;
        throw data::Refusal(column->refusal);
    }
}

}  // namespace widgets
