#include "Session.h"

#include <poll.h>

#include <QRegularExpression>
#include <QtEndian>

namespace wire {
namespace {

constexpr quint32 kVersion71 = 0x71000001, kVersion72 = 0x72090002;

QString utf16(const QByteArray& bytes) {
    QString text;
    for (qsizetype at = 0; at + 1 < bytes.size(); at += 2)
        text.append(QChar(qFromLittleEndian<quint16>(bytes.constData() + at)));
    return text;
}

// A batch is compiled as a whole against the tables as they are: a column that it adds is not there yet.
void refuseUncompiled(QString batch) {
    static const QRegularExpression literals(QStringLiteral("'(?:[^']|'')*'"));
    batch.remove(literals);
    static const QRegularExpression addition(QStringLiteral("alter table \\[?\\w+\\]? add \\[?(\\w+)\\]?"));
    for (auto found = addition.globalMatch(batch); found.hasNext();) {
        const QRegularExpressionMatch added = found.next();
        const QRegularExpression use(QStringLiteral("(?<!add )(?<!add \\[)\\b%1\\b").arg(added.captured(1)));
        if (use.match(batch, added.capturedEnd()).hasMatch())
            throw data::ServerError(QStringLiteral("Invalid column name '%1'.").arg(added.captured(1)), 207);
    }
}

// The values of a reply that is no table's.
class Values : public data::RowView {
public:
    explicit Values(QVariantList values) : m_values(std::move(values)) {}
    QVariant value(int column) const override { return m_values[column]; }
    bool isNull(int column) const override { return !m_values[column].isValid(); }
    QByteArrayView text(int) const override { return {}; }

private:
    QVariantList m_values;
};

void table(Tokens& reply, const QList<data::ColumnInfo>& columns, const QList<QVariantList>& rows) {
    reply.columns(columns);
    for (const QVariantList& row : rows)
        reply.row(Values(row), columns);
    reply.done(Tokens::Count, rows.size());
}

data::ColumnInfo textColumn(const char* name) {
    return {.name = QString::fromLatin1(name), .type = data::ColumnType::Text, .length = 128};
}

}  // namespace

Session::Session(int socket, std::unique_ptr<data::Connection> company, Harshness& harshness)
    : m_packets(socket),
      m_company(std::move(company)),
      m_harshness(harshness),
      m_counts(!harshness.noCount) {}

bool Session::serve() {
    const std::optional<Message> message = m_packets.read();
    if (!message)
        return false;
    switch (message->type) {
        case MessageType::Prelogin:
            // Version and no encryption: offsets and lengths first.
            return m_packets.write(
                QByteArray::fromHex("00000b0006"
                                    "0100110001"
                                    "ff"
                                    "0c000bb80000"
                                    "02"));
        case MessageType::Login:
            return welcome(message->content);
        case MessageType::Batch:
            return batch(message->content);
        case MessageType::Attention: {
            Tokens reply(m_modern);
            reply.done(Tokens::Attention);
            return m_packets.write(reply.bytes());
        }
        case MessageType::Call:
            return call(message->content);
        default: {
            Tokens reply(m_modern);
            reply.error(8180, 16, QStringLiteral("This server takes batches only."));
            reply.done(Tokens::Error);
            return m_packets.write(reply.bytes());
        }
    }
}

bool Session::welcome(const QByteArray& login) {
    const quint32 asked = login.size() < 8 ? 0 : qFromLittleEndian<quint32>(login.constData() + 4);
    m_modern = asked >= kVersion72;
    Tokens reply(m_modern);
    reply.environment(1, QStringLiteral("company"), QStringLiteral("master"));
    reply.info(5701, QStringLiteral("Changed database context to 'company'."));
    reply.environment(7, collation(), QByteArray());
    reply.loginAccepted(m_modern ? asked : kVersion71, QStringLiteral("SQL Server"));
    const QString size = QString::number(m_harshness.packetSize);
    reply.environment(4, size, QString::number(4096));
    reply.done(Tokens::Final);
    const bool written = m_packets.write(reply.bytes());
    m_packets.setSize(m_harshness.packetSize);
    return written;
}

bool Session::batch(const QByteArray& content) {
    const quint32 headers =
        m_modern && content.size() >= 4 ? qFromLittleEndian<quint32>(content.constData()) : 0;
    const QString sql = utf16(content.mid(headers));
    if (isGivenUp())
        return true;
    ++m_harshness.replies;
    static const QString kBegin = QStringLiteral("Begin Transaction\n");
    Tokens reply(m_modern);
    try {
        const bool begins = sql.startsWith(kBegin);
        if (begins)
            m_company->begin();
        const QString rest = begins ? sql.mid(kBegin.size()) : sql;
        if (!command(rest, reply))
            run(rest, reply);
    } catch (const data::ServerError& error) {
        refuse(error, reply);
    }
    const bool committed = sql.simplified().compare(QLatin1String("commit"), Qt::CaseInsensitive) == 0;
    if (committed && m_harshness.cutsAtCommit.exchange(false))
        return false;
    return m_packets.write(reply.bytes());
}

// Lets the latency pass; the client may call out meanwhile. What it has begun is undone then.
bool Session::isGivenUp() const {
    pollfd line = {m_packets.socket(), POLLIN, 0};
    if (const int latency = m_harshness.latencyMilliseconds; latency <= 0 || ::poll(&line, 1, latency) == 0)
        return false;
    if (m_company->inTransaction())
        m_company->rollback();
    return true;
}

bool Session::command(const QString& sql, Tokens& reply) {
    const QString text = sql.simplified().toLower();
    if (text == QLatin1String("commit")) {
        if (!m_company->inTransaction())
            throw data::ServerError(
                QStringLiteral("The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION."),
                3902);
        m_company->commit();
    } else if (text == QLatin1String("if @@trancount>0 rollback")) {
        if (m_company->inTransaction())
            m_company->rollback();
    } else if (text.startsWith(QLatin1String("select db_name()"))) {
        describeSession(reply);
        return true;
    } else if (text.contains(QLatin1String("create procedure")) ||
               text.contains(QLatin1String("drop procedure"))) {
        // The engine has the company's procedures built in.
    } else if (text.startsWith(QLatin1String("set nocount off"))) {
        m_counts = true;
    } else if (!text.startsWith(QLatin1String("use "))) {
        refuseUncompiled(text);
        return false;
    }
    reply.done(Tokens::Final);
    return true;
}

// As odbc::prepareSession asks for it: names, code page, and a 1 for each right that is there.
void Session::describeSession(Tokens& reply) {
    QList<data::ColumnInfo> columns = {textColumn("database"),
                                       {.name = "code page", .type = data::ColumnType::Integer},
                                       textColumn("schema")};
    QVariantList values = {QStringLiteral("company"), m_harshness.codePage, QStringLiteral("dbo")};
    for (const char* right : {"CREATE TABLE", "SELECT", "INSERT", "UPDATE", "DELETE", "ALTER", "EXECUTE"}) {
        columns.append({.name = QString(), .type = data::ColumnType::Integer});
        values.append(m_harshness.missingRights.contains(QLatin1String(right)) ? 0 : 1);
    }
    table(reply, columns, {values});
}

// The one call that the driver makes: for the primary key of a table, named in the parameter @table_name.
bool Session::call(const QByteArray& content) {
    constexpr char kParameter[] = "@\0t\0a\0b\0l\0e\0_\0n\0a\0m\0e\0";
    constexpr int kStatus = 1, kType = 1 + 2 + 5;  // before the value's length
    const qsizetype name = content.indexOf(QByteArray(kParameter, sizeof kParameter - 1));
    const qsizetype value = name + qsizetype(sizeof kParameter) - 1 + kStatus + kType;
    ++m_harshness.replies;
    Tokens reply(m_modern);
    if (name < 0 || value + 2 > content.size()) {
        reply.error(2812, 16, QStringLiteral("Could not find stored procedure."));
        reply.done(Tokens::Error);
    } else {
        const quint16 size = qFromLittleEndian<quint16>(content.constData() + value);
        primaryKeys(utf16(content.mid(value + 2, size)), reply);
    }
    return m_packets.write(reply.bytes());
}

void Session::primaryKeys(const QString& of, Tokens& reply) {
    QString key;
    try {
        key = m_company->rowIdentity(of);
    } catch (const data::ServerError&) {
        // No such table: no keys.
    }
    QList<QVariantList> rows;
    if (key.startsWith(u'['))
        rows.append({QStringLiteral("company"), QStringLiteral("dbo"), of, key.mid(1).chopped(1), 1,
                     QStringLiteral("PK")});
    table(reply,
          {textColumn("TABLE_QUALIFIER"),
           textColumn("TABLE_OWNER"),
           textColumn("TABLE_NAME"),
           textColumn("COLUMN_NAME"),
           {.name = "KEY_SEQ", .type = data::ColumnType::Integer},
           textColumn("PK_NAME")},
          rows);
}

void Session::run(const QString& sql, Tokens& reply) {
    QList<data::ColumnInfo> shape;
    qint64 rows = 0;
    const auto endRows = [&] {
        if (!shape.isEmpty())
            reply.done(Tokens::More | Tokens::Count, rows);
        rows = 0;
    };
    const qint64 affected = m_company->stream(
        sql,
        [&](const QList<data::ColumnInfo>& columns) {
            endRows();
            shape = columns;
            reply.columns(columns);
        },
        [&](const data::RowView& row) {
            reply.row(row, shape);
            ++rows;
            return true;
        });
    endRows();
    reply.info(0, QStringLiteral("A word besides the results."));
    reply.done(m_counts ? Tokens::Count : Tokens::Final, affected);
}

// An error ends the transaction: by the time the client reads of it there is none.
void Session::refuse(const data::ServerError& error, Tokens& reply) {
    if (m_company->inTransaction())
        m_company->rollback();
    constexpr int kOther = 50000, kSeverity = 16;
    reply.error(error.number() != 0 ? error.number() : kOther, kSeverity, error.text());
    reply.info(3621, QStringLiteral("The statement has been terminated."));
    reply.done(Tokens::Error);
}

}  // namespace wire
