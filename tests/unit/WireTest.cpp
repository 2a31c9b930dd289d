// What a server does at its worst, over a real line: odbc/ and the tests' own server.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "Dataset.h"
#include "Embedded.h"
#include "Errors.h"
#include "Odbc.h"
#include "WireServer.h"

namespace {

// Gives a statement up as soon as it is asked.
class Impatience : public data::Patience {
public:
    bool goOn() override { return false; }
    bool isSeen() const override { return false; }
};

class Wire : public testing::Test {
protected:
    std::unique_ptr<data::Connection> connect() { return odbc::open(server.connectionString()); }

    QString refusal() {
        try {
            connect();
        } catch (const data::Refusal& refused) {
            return refused.text();
        }
        return {};
    }

    QTemporaryDir folder;
    wire::WireServer server{[this] {
        return tsql::open(folder.filePath("company"), tsql::OpenMode::Create, tsql::RowPlaces::Hidden);
    }};
};

TEST_F(Wire, WhatWillNotDoIsRefusedByNameAtOnce) {
    server.harshness().codePage = 1252;
    EXPECT_TRUE(refusal().contains("1252")) << qPrintable(refusal());
    server.harshness().codePage = 1256;
    server.harshness().missingRights = {"CREATE TABLE", "DELETE"};
    EXPECT_TRUE(refusal().contains("CREATE TABLE, DELETE")) << qPrintable(refusal());
}

TEST_F(Wire, RowsTouchedAreCountedOnAServerThatDoesNotCount) {
    server.harshness().noCount = true;
    const auto connection = connect();
    connection->execute("create table t(a int) insert into t values(1) insert into t values(1)");
    data::Dataset rows;
    rows.setConnection(connection.get());
    rows.setTableName("t");
    rows.open();
    rows.setValue("a", 2);
    rows.post();
    EXPECT_EQ(connection->execute("select a from t where a=2").rows.size(), 1);
}

TEST_F(Wire, LongTextsComeWholeInTheSmallestPackets) {
    server.harshness().packetSize = 512;
    const auto connection = connect();
    const QString text = QStringLiteral("حقوق پايه ").repeated(790);
    connection->execute("create table t(a varchar(8000))");
    connection->execute("insert into t values(" + data::quoted(text) + ")");
    EXPECT_EQ(connection->execute("select a, len(a) from t").rows.value(0),
              (QVariantList{text, qlonglong(text.trimmed().size())}));
}

TEST_F(Wire, AStatementGivenUpEndsItsTransactionAndNothingElse) {
    const auto connection = connect();
    connection->execute("create table t(a int)");
    connection->begin();
    connection->execute("insert into t values(1)");
    server.harshness().latencyMilliseconds = 10'000;
    connection->setPatience([] { return std::make_unique<Impatience>(); });
    try {
        connection->execute("insert into t values(2)");
        FAIL() << "nobody gave up";
    } catch (const data::ServerError& error) {
        EXPECT_EQ(error.fault(), data::Fault::GivenUp) << error.what();
    }
    server.harshness().latencyMilliseconds = 0;
    connection->setPatience({});
    connection->rollback();
    EXPECT_EQ(connection->execute("select count(*) from t").rows[0][0].toInt(), 0);
}

TEST_F(Wire, ABatchIsCompiledAgainstTheTablesAsTheyAre) {
    const auto connection = connect();
    connection->execute("create table t(a int)");
    EXPECT_THROW(connection->execute("alter table t add b int update t set b=1"), data::ServerError);
    connection->execute("alter table t add b int");
    connection->execute("update t set b=1");
}

TEST_F(Wire, ALineMadeAnewGivesBackWhatTheSessionHeld) {
    const auto connection = connect();
    connection->execute("create table kept(a int)");
    QStringList steps;
    const data::Reconnection reconnection(
        *connection, [&] { return steps.append("settle"), QString("said"); },
        [&] { connection->execute("create table ##w(a int)"), steps.append("restore"); });
    connection->begin();
    connection->execute("insert into kept values(1)");
    server.cut();
    EXPECT_THROW(connection->execute("insert into kept values(2)"), data::ServerError);
    EXPECT_TRUE(connection->lineLost());
    connection->rollback();
    try {
        connection->begin();
        FAIL() << "begun without a line";
    } catch (const data::ServerError& error) {
        EXPECT_EQ(error.fault(), data::Fault::LineLost);
    }
    EXPECT_EQ(connection->connectAgain(), QStringList{"said"});
    EXPECT_EQ(steps, (QStringList{"settle", "restore"}));
    EXPECT_EQ(connection->execute("select count(*) from kept").rows[0][0].toInt(), 0);

    connection->begin();
    connection->execute("insert into kept values(3)");
    server.harshness().cutsAtCommit = true;
    try {
        connection->commit();
        FAIL() << "stored without a word";
    } catch (const data::ServerError& error) {
        EXPECT_EQ(error.fault(), data::Fault::CommitUnknown);
    }
    EXPECT_TRUE(connection->lineLost());
}

}  // namespace
