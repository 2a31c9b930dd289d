// Runs tests/sql/*.test on every connection there is: the embedded engine, the same through the driver and
// the tests' own server, and the server that the environment variable KORVANTA_ODBC names (a scratch
// database: its tables are dropped).
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <map>

#include "Embedded.h"
#include "Errors.h"
#include "HostCompany.h"
#include "Odbc.h"
#include "Query.h"
#include "WireServer.h"

namespace {

// One record of a corpus file; tests/sql/README.md describes the kinds.
struct Record {
    int line = 0;
    QString kind;
    QString argument;
    QString sql;
    QStringList expected;
    bool hasExpected = false;
};

QList<Record> parse(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + fileName.toStdString());
    QList<Record> records;
    bool inside = false;
    int number = 0;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++number;
        if (line.isEmpty() || (!inside && line.startsWith(u'#'))) {
            inside = inside && !line.isEmpty();
        } else if (!inside) {
            const qsizetype blank = line.indexOf(u' ');
            records.append(
                {number, line.left(blank), blank < 0 ? QString() : line.mid(blank + 1), {}, {}, false});
            inside = true;
        } else if (line == QLatin1String("----")) {
            records.last().hasExpected = true;
        } else if (records.last().hasExpected) {
            records.last().expected.append(line);
        } else {
            records.last().sql += line + u'\n';
        }
    }
    return records;
}

QString shown(const QVariant& value) {
    if (!value.isValid())
        return QStringLiteral("NULL");
    if (value.typeId() == QMetaType::QByteArray)
        return "0x" + QString::fromLatin1(value.toByteArray().toHex());
    if (value.typeId() != QMetaType::QString)
        return data::valueText(value);
    QString text = value.toString();
    text.replace(QLatin1String("\\"), QLatin1String("\\\\"))
        .replace(QLatin1String("\""), QLatin1String("\\\""));
    return u'"' + text + u'"';
}

QString shown(const data::ColumnInfo& column) {
    const char* const types[] = {"integer", "real", "text", "datetime", "binary"};
    QString text = column.name + " " + QLatin1String(types[static_cast<int>(column.type)]);
    if (column.type == data::ColumnType::Text && column.length > 0)
        text += QStringLiteral("(%1)").arg(column.length);
    return text + QLatin1String(column.identity ? " identity" : "");
}

// A place where databases are made and thrown away.
class Server {
public:
    virtual ~Server() = default;
    // Drops all connections and data; `company`: makes the tables and rows of an empty company.
    virtual void reset(bool company) = 0;
    virtual std::unique_ptr<data::Connection> open() = 0;
};

class EmbeddedServer : public Server {
public:
    void reset(bool company) override {
        m_file = m_folder.filePath(QStringLiteral("company%1.db").arg(++m_count));
        if (company)
            host::createEmptyCompany(m_file);
    }
    std::unique_ptr<data::Connection> open() override { return tsql::open(m_file, tsql::OpenMode::Create); }

protected:
    QString m_file;

private:
    QTemporaryDir m_folder;
    int m_count = 0;
};

// The embedded engine again, through driver and line.
class LoopbackServer : public EmbeddedServer {
public:
    void reset(bool company) override {
        m_server.reset();
        EmbeddedServer::reset(company);
        m_server = std::make_unique<wire::WireServer>(
            [this] { return tsql::open(m_file, tsql::OpenMode::Create, tsql::RowPlaces::Hidden); });
    }
    std::unique_ptr<data::Connection> open() override { return odbc::open(m_server->connectionString()); }

private:
    std::unique_ptr<wire::WireServer> m_server;
};

class OdbcServer : public Server {
public:
    void reset(bool company) override {
        const auto connection = open();
        const data::ResultSet tables = connection->execute("select name from sysobjects where xtype='U'");
        for (const QVariantList& row : tables.rows)
            connection->execute("drop table " + data::bracketed(row[0].toString()));
        if (company)
            for (const char* script : {"company", "procedures", "empty"})
                host::runScript(*connection, host::schemaFolder() + "/" + script + ".sql");
    }
    std::unique_ptr<data::Connection> open() override {
        return odbc::open(qEnvironmentVariable("KORVANTA_ODBC"));
    }
};

class Player {
public:
    Player(Server& server, QString file) : m_server(server), m_file(std::move(file)) {}

    void play() {
        for (const Record& record : parse(m_file)) {
            m_record = &record;
            try {
                step(record);
            } catch (const data::TextException& error) {
                fail(QStringLiteral("success"), error.text());
            }
        }
        m_connections.clear();
    }

private:
    void step(const Record& record) {
        if (record.kind == "company" || record.kind == "database") {
            m_connections.clear();
            m_server.reset(record.kind == "company");
            m_name.clear();
        } else if (record.kind == "connection") {
            m_name = record.argument;
        } else if (record.kind == "begin") {
            connection().begin();
        } else if (record.kind == "commit") {
            connection().commit();
        } else if (record.kind == "rollback") {
            connection().rollback();
        } else if (record.kind == "ok") {
            const qint64 affected = connection().execute(record.sql).affected;
            if (!record.argument.isEmpty())
                compare(record.argument, QString::number(affected) + " rows");
        } else if (record.kind == "error") {
            expectError(record);
        } else if (record.kind == "query" && record.hasExpected) {
            QStringList found;
            for (const QVariantList& row : connection().execute(record.sql).rows) {
                QStringList fields;
                for (const QVariant& value : row)
                    fields.append(shown(value));
                found.append(fields.join(QLatin1String(" | ")));
            }
            compare(record.expected.join(u'\n'), found.join(u'\n'));
        } else if (record.kind == "rows") {
            compare(record.argument, QString::number(connection().execute(record.sql).rows.size()));
        } else if (record.kind == "columns" && record.hasExpected) {
            QStringList found;
            for (const data::ColumnInfo& column : connection().execute(record.sql).columns)
                found.append(shown(column));
            compare(record.expected.join(u'\n'), found.join(u'\n'));
        } else {
            fail(QStringLiteral("a record"), record.kind);
        }
    }

    void expectError(const Record& record) {
        try {
            connection().execute(record.sql);
        } catch (const data::ServerError& error) {
            if (!error.text().contains(record.argument))
                fail(record.argument, error.text());
            return;
        }
        fail(record.argument, QStringLiteral("no error"));
    }

    data::Connection& connection() {
        auto& connection = m_connections[m_name];
        if (!connection)
            connection = m_server.open();
        return *connection;
    }

    void compare(const QString& expected, const QString& found) {
        if (expected != found)
            fail(expected, found);
    }

    void fail(const QString& expected, const QString& found) {
        ADD_FAILURE() << m_file.toStdString() << ":" << m_record->line << ": expected\n"
                      << expected.toStdString() << "\nbut found\n"
                      << found.toStdString();
    }

    Server& m_server;
    QString m_file;
    const Record* m_record = nullptr;
    std::map<QString, std::unique_ptr<data::Connection>> m_connections;
    QString m_name;
};

class Corpus : public testing::TestWithParam<std::string> {};

QString corpusFolder() {
    return QStringLiteral(KORVANTA_SOURCE_DIR "/tests/sql");
}

TEST_P(Corpus, Embedded) {
    EmbeddedServer server;
    Player(server, corpusFolder() + "/" + QString::fromStdString(GetParam()) + ".test").play();
}

TEST_P(Corpus, Loopback) {
    LoopbackServer server;
    Player(server, corpusFolder() + "/" + QString::fromStdString(GetParam()) + ".test").play();
}

TEST_P(Corpus, Server) {
    if (!qEnvironmentVariableIsSet("KORVANTA_ODBC"))
        GTEST_SKIP() << "KORVANTA_ODBC names no server";
    OdbcServer server;
    Player(server, corpusFolder() + "/" + QString::fromStdString(GetParam()) + ".test").play();
}

std::vector<std::string> corpusFiles() {
    std::vector<std::string> names;
    for (const QString& file : QDir(corpusFolder()).entryList({"*.test"}, QDir::Files, QDir::Name))
        names.push_back(file.chopped(5).toStdString());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Sql, Corpus, testing::ValuesIn(corpusFiles()),
                         [](const auto& parameter) { return parameter.param; });

}  // namespace
