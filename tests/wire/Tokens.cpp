#include "Tokens.h"

#include <QDateTime>
#include <QtEndian>
#include <bit>

#include "CodePage.h"

namespace wire {
namespace {

constexpr quint8 kIntegers = 0x26, kReals = 0x6D, kMoments = 0x6F, kTexts = 0xA7, kBinaries = 0xA5;
constexpr quint16 kUnlimited = 0xFFFF;
constexpr quint16 kNullLength = 0xFFFF;
constexpr quint64 kNullTotal = ~quint64(0);

QByteArray inCodePage(const QString& text) {
    QByteArray bytes;
    for (const QChar character : text)
        bytes.append(character.unicode() == 0 ? '\0' : char(data::codePageByte(character)));
    return bytes;
}

bool isLimited(const data::ColumnInfo& column) {
    return column.type == data::ColumnType::Text && column.length > 0 && column.length <= 8000;
}

}  // namespace

QByteArray collation() {
    return QByteArray::fromHex("0104d00000");
}

template <typename Number>
void Tokens::put(Number number) {
    char bytes[sizeof number];
    qToLittleEndian(number, bytes);
    m_bytes.append(bytes, sizeof number);
}

void Tokens::putText(const QString& text) {
    put<quint8>(quint8(text.size()));
    for (const QChar character : text)
        put<quint16>(character.unicode());
}

void Tokens::putLongText(const QString& text) {
    put<quint16>(quint16(text.size()));
    for (const QChar character : text)
        put<quint16>(character.unicode());
}

void Tokens::environment(quint8 kind, const QByteArray& now, const QByteArray& before) {
    put<quint8>(0xE3);
    put<quint16>(quint16(3 + now.size() + before.size()));
    put<quint8>(kind);
    put<quint8>(quint8(now.size()));
    m_bytes += now;
    put<quint8>(quint8(before.size()));
    m_bytes += before;
}

void Tokens::environment(quint8 kind, const QString& now, const QString& before) {
    put<quint8>(0xE3);
    put<quint16>(quint16(3 + 2 * (now.size() + before.size())));
    put<quint8>(kind);
    putText(now);
    putText(before);
}

void Tokens::loginAccepted(quint32 version, const QString& program) {
    put<quint8>(0xAD);
    put<quint16>(quint16(1 + 4 + 1 + 2 * program.size() + 4));
    put<quint8>(1);
    char bytes[4];
    qToBigEndian(version, bytes);
    m_bytes.append(bytes, 4);
    putText(program);
    m_bytes += QByteArray::fromHex("0c000bb8");
}

void Tokens::message(quint8 token, int number, int severity, const QString& text) {
    put<quint8>(token);
    const QString server = QStringLiteral("wire");
    const qsizetype size = 4 + 1 + 1 + 2 + 2 * text.size() + 1 + 2 * server.size() + 1 + (m_modern ? 4 : 2);
    put<quint16>(quint16(size));
    put<qint32>(number);
    put<quint8>(1);
    put<quint8>(quint8(severity));
    putLongText(text);
    putText(server);
    putText(QString());
    m_modern ? put<quint32>(1) : put<quint16>(1);
}

void Tokens::putType(const data::ColumnInfo& column) {
    switch (column.type) {
        case data::ColumnType::Integer:
            put<quint8>(kIntegers);
            put<quint8>(sizeof(qint64));
            return;
        case data::ColumnType::Real:
            put<quint8>(kReals);
            put<quint8>(sizeof(double));
            return;
        case data::ColumnType::DateTime:
            put<quint8>(kMoments);
            put<quint8>(8);
            return;
        case data::ColumnType::Binary:
            put<quint8>(kBinaries);
            put<quint16>(kUnlimited);
            return;
        case data::ColumnType::Text:
            put<quint8>(kTexts);
            put<quint16>(isLimited(column) ? quint16(column.length) : kUnlimited);
            m_bytes += collation();
            return;
    }
}

void Tokens::columns(const QList<data::ColumnInfo>& columns) {
    constexpr quint16 kNullable = 0x01, kIdentity = 0x10;
    put<quint8>(0x81);
    put<quint16>(quint16(columns.size()));
    for (const data::ColumnInfo& column : columns) {
        m_modern ? put<quint32>(0) : put<quint16>(0);
        put<quint16>(quint16((column.nullable ? kNullable : 0) | (column.identity ? kIdentity : 0)));
        putType(column);
        putText(column.name);
    }
}

void Tokens::putBytes(const QByteArray& bytes, bool unlimited) {
    if (!unlimited) {
        put<quint16>(quint16(bytes.size()));
        m_bytes += bytes;
        return;
    }
    put<quint64>(quint64(bytes.size()));
    if (!bytes.isEmpty()) {
        put<quint32>(quint32(bytes.size()));
        m_bytes += bytes;
    }
    put<quint32>(0);
}

void Tokens::putValue(const QVariant& value, const data::ColumnInfo& column) {
    const bool isText = column.type == data::ColumnType::Text;
    const bool isBytes = isText || column.type == data::ColumnType::Binary;
    const bool unlimited = isBytes && !isLimited(column);
    if (!value.isValid()) {
        if (unlimited)
            put<quint64>(kNullTotal);
        else if (isBytes)
            put<quint16>(kNullLength);
        else
            put<quint8>(0);
    } else if (isText) {
        putBytes(inCodePage(value.toString()), unlimited);
    } else if (isBytes) {
        putBytes(value.toByteArray(), true);
    } else if (column.type == data::ColumnType::DateTime) {
        const QDateTime moment =
            QDateTime::fromString(value.toString(), QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
        put<quint8>(8);
        put<qint32>(qint32(QDate(1900, 1, 1).daysTo(moment.date())));
        put<quint32>(quint32((moment.time().msecsSinceStartOfDay() * 3 + 5) / 10));
    } else {
        put<quint8>(8);
        put<quint64>(column.type == data::ColumnType::Integer ? quint64(value.toLongLong())
                                                              : std::bit_cast<quint64>(value.toDouble()));
    }
}

void Tokens::row(const data::RowView& row, const QList<data::ColumnInfo>& columns) {
    put<quint8>(0xD1);
    for (int i = 0; i < columns.size(); ++i)
        putValue(row.value(i), columns[i]);
}

void Tokens::done(quint16 status, qint64 count) {
    put<quint8>(0xFD);
    put<quint16>(status);
    put<quint16>(0);
    m_modern ? put<quint64>(quint64(count)) : put<quint32>(quint32(count));
}

}  // namespace wire
