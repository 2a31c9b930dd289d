// The plumbing of the ODBC connection, played on a small file database; what only SQL Server does is
// in the SQL corpus.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include "Errors.h"
#include "Handles.h"
#include "Odbc.h"

namespace {

constexpr auto kDriver = "/usr/lib/x86_64-linux-gnu/odbc/libsqlite3odbc.so";

class Odbc : public testing::Test {
protected:
    void SetUp() override {
        if (!QFile::exists(kDriver))
            GTEST_SKIP() << kDriver << " is not installed";
        connection = open();
    }

    std::unique_ptr<data::Connection> open() {
        return odbc::open(QStringLiteral("Driver=%1;Database=%2")
                              .arg(QLatin1String(kDriver), folder.filePath("company.db")));
    }

    QVariant first(const QString& sql) { return connection->execute(sql).rows.at(0).at(0); }

    QTemporaryDir folder;
    std::unique_ptr<data::Connection> connection;
};

TEST_F(Odbc, ValuesKeepTheirKinds) {
    connection->execute("create table t(i integer not null, f float, s varchar(20), b varbinary(8))");
    connection->execute("insert into t values(9007199254740993, 0.1, 'حقوق پايه ''ض''', x'00ff20')");
    connection->execute("insert into t values(-1, null, '', null)");
    const data::ResultSet result = connection->execute("select i, f, s, b from t");

    ASSERT_EQ(result.columns.size(), 4);
    EXPECT_EQ(result.columns[0].type, data::ColumnType::Integer);
    EXPECT_EQ(result.columns[1].type, data::ColumnType::Real);
    EXPECT_EQ(result.columns[2].type, data::ColumnType::Text);
    EXPECT_EQ(result.columns[2].length, 20);
    EXPECT_EQ(result.columns[3].type, data::ColumnType::Binary);
    EXPECT_EQ(result.columns[2].name, "s");

    ASSERT_EQ(result.rows.size(), 2);
    EXPECT_EQ(result.rows[0][0], QVariant(qlonglong(9007199254740993)));
    EXPECT_EQ(result.rows[0][1], QVariant(0.1));
    EXPECT_EQ(result.rows[0][2], QVariant(QStringLiteral("حقوق پايه 'ض'")));
    EXPECT_EQ(result.rows[0][3], QVariant(QByteArray::fromHex("00ff20")));
    EXPECT_FALSE(result.rows[1][1].isValid());
    EXPECT_EQ(result.rows[1][2], QVariant(QString("")));
    EXPECT_FALSE(result.rows[1][3].isValid());
}

TEST_F(Odbc, LongTextsAndBytesComeWhole) {
    const QString text = QStringLiteral("پايه ").repeated(5000);
    connection->execute("create table t(s text, b blob)");
    connection->execute("insert into t values('" + text + "', x'" + QString("0a").repeated(9000) + "')");
    EXPECT_EQ(first("select s from t").toString(), text);
    EXPECT_EQ(first("select b from t").toByteArray(), QByteArray(9000, '\x0a'));
}

TEST_F(Odbc, StreamStopsWhenToldAndReadsTexts) {
    connection->execute("create table t(i integer)");
    connection->execute("insert into t values(1), (2), (3)");
    QByteArrayList seen;
    connection->stream(
        "select i from t order by i",
        [](const QList<data::ColumnInfo>& columns) { EXPECT_EQ(columns.size(), 1); },
        [&](const data::RowView& row) {
            seen.append(row.text(0).toByteArray());
            return seen.size() < 2;
        });
    EXPECT_EQ(seen, (QByteArrayList{"1", "2"}));
    EXPECT_EQ(connection->execute("update t set i=i+1 where i>1").affected, 2);
}

TEST_F(Odbc, TransactionsAreAllOrNothing) {
    connection->execute("create table t(i integer)");
    connection->begin();
    connection->execute("insert into t values(1)");
    EXPECT_TRUE(connection->inTransaction());
    connection->rollback();
    EXPECT_EQ(first("select count(*) from t").toInt(), 0);
    {
        data::Transaction transaction(*connection);
        connection->execute("insert into t values(2)");
        transaction.commit();
    }
    EXPECT_FALSE(connection->inTransaction());
    connection->execute("insert into t values(3)");
    connection = open();
    EXPECT_EQ(first("select count(*) from t").toInt(), 2);
}

TEST_F(Odbc, RowsAreToldApartByTheKeyWhereThereIsOne) {
    connection->execute("create table keyed(a varchar(2) primary key, b integer)");
    connection->execute("create table paired(a integer, b integer, primary key(a, b))");
    connection->execute("create table bare(a integer)");
    EXPECT_EQ(connection->rowIdentity("keyed"), "[a]");
    EXPECT_EQ(connection->rowIdentity("paired"), "");
    EXPECT_EQ(connection->rowIdentity("bare"), "");
}

TEST_F(Odbc, RefusalsCarryTheServersWords) {
    try {
        connection->execute("select * from absent");
        FAIL() << "no refusal";
    } catch (const data::ServerError& error) {
        EXPECT_TRUE(error.text().startsWith("no such table: absent")) << error.what();
    }
    EXPECT_THROW(odbc::open("Driver=/nowhere/driver.so"), data::ServerError);
    EXPECT_THROW(connection->execute(QStringLiteral("select '\u4e2d'")), data::Refusal);
}

TEST(OdbcWords, LoseTheDriversPrefixOnly) {
    EXPECT_EQ(odbc::serverWords("[Maker][Driver 18][Server]Invalid object name '[x]'."),
              "Invalid object name '[x]'.");
    EXPECT_EQ(odbc::serverWords("Invalid column name 'a]b'."), "Invalid column name 'a]b'.");
    EXPECT_EQ(odbc::serverWords("[unclosed"), "[unclosed");
}

}  // namespace
