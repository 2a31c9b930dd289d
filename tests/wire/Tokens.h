// What a server's reply is made of.
#pragma once

#include <QByteArray>

#include "Connection.h"

namespace wire {

// A reply under way. Widths differ by the version that the client has asked for.
class Tokens {
public:
    // `modern`: version 7.2 or later.
    explicit Tokens(bool modern) : m_modern(modern) {}

    const QByteArray& bytes() const { return m_bytes; }

    void environment(quint8 kind, const QByteArray& now, const QByteArray& before);
    void environment(quint8 kind, const QString& now, const QString& before);
    void loginAccepted(quint32 version, const QString& program);
    void error(int number, int severity, const QString& text) { message(0xAA, number, severity, text); }
    void info(int number, const QString& text) { message(0xAB, number, 0, text); }
    void columns(const QList<data::ColumnInfo>& columns);
    void row(const data::RowView& row, const QList<data::ColumnInfo>& columns);
    enum Done : quint16 { Final = 0, More = 0x01, Error = 0x02, Count = 0x10, Attention = 0x20 };
    void done(quint16 status, qint64 count = 0);

private:
    template <typename Number>
    void put(Number number);
    void putText(const QString& text);      // with a byte that counts its characters
    void putLongText(const QString& text);  // with two
    void putType(const data::ColumnInfo& column);
    void putValue(const QVariant& value, const data::ColumnInfo& column);
    void putBytes(const QByteArray& bytes, bool unlimited);
    void message(quint8 token, int number, int severity, const QString& text);

    bool m_modern;
    QByteArray m_bytes;
};

// The sort order and code page of texts: Arabic, letter case ignored, Windows-1256.
QByteArray collation();

}  // namespace wire
