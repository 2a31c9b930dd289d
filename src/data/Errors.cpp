#include "Errors.h"

#include <QRegularExpression>

namespace data {
namespace {

// The server's messages that the module tells apart.
struct Message {
    int number;
    Fault fault;
    const char* words;  // of the message, or of one that stands for it
};
constexpr Message kMessages[] = {
    {2627, Fault::RepeatedKey, "Violation of PRIMARY KEY"},
    {2627, Fault::RepeatedKey, "Key violation"},
    {2601, Fault::RepeatedKey, "duplicate key"},
    {515, Fault::MissingValue, "Cannot insert the value NULL into column"},
    {8152, Fault::TooLong, "String or binary data would be truncated"},
    {2628, Fault::TooLong, "String or binary data would be truncated in table"},
    {547, Fault::Referred, "conflicted with the"},
    {1205, Fault::Deadlock, "deadlock"},
    {1222, Fault::LockTimeout, "Lock request time out"},
    {208, Fault::NoSuchObject, "Invalid object name"},
    {207, Fault::NoSuchColumn, "Invalid column name"},
};

}  // namespace

int ServerError::numberOf(const QString& text) {
    for (const Message& message : kMessages)
        if (text.contains(QLatin1String(message.words), Qt::CaseInsensitive))
            return message.number;
    return 0;
}

ServerError::ServerError(const QString& text, int number) : TextException(text), m_number(number) {
    const int meant = number != 0 ? number : numberOf(text);
    for (const Message& message : kMessages)
        if (message.number == meant)
            m_fault = message.fault;
}

void ServerError::setStatement(const QString& sql) {
    if (!m_statement.isEmpty())
        return;
    static const QRegularExpression values(
        QStringLiteral("'(?:[^']|'')*'|(?<![\\w])\\d+(?:\\.\\d+)?(?![\\w])"));
    constexpr qsizetype kLongest = 1000;
    m_statement = sql.left(kLongest).simplified().replace(values, QStringLiteral("?"));
    static const QRegularExpression manyValues(QStringLiteral("\\?(?:,\\s*\\?)+"));
    m_statement.replace(manyValues, QStringLiteral("?, …"));
}

QString ServerError::details() const {
    static const QRegularExpression values(
        QStringLiteral("(\\bvalues?\\b[^'(]{0,12})('(?:[^']|'')*'|\\([^)]*\\))"),
        QRegularExpression::CaseInsensitiveOption);
    QStringList lines;
    if (m_number != 0)
        lines.append(QStringLiteral("Msg %1").arg(m_number));
    lines.append(QString(text()).replace(values, QStringLiteral("\\1?")));
    if (!m_statement.isEmpty())
        lines.append(m_statement);
    return lines.join(u'\n');
}

}  // namespace data
