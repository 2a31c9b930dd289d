// What no line of the corpus can say of the embedded engine: files, locks, shared handles, streams and
// plans that outlive a change of the tables.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QFile>
#include <QTemporaryDir>

#include "Embedded.h"
#include "Errors.h"
#include "Query.h"

namespace {

class EngineTest : public testing::Test {
protected:
    using Owned = std::unique_ptr<data::Connection>;

    QString path(const char* name = "company.db") const { return folder.filePath(QLatin1String(name)); }
    Owned opened(tsql::OpenMode mode = tsql::OpenMode::Create) const { return tsql::open(path(), mode); }

    // Rows as "1|abc|NULL".
    static QStringList rows(data::Connection& connection, const QByteArray& sql) {
        QStringList result;
        for (const QVariantList& row : connection.execute(QString::fromUtf8(sql)).rows) {
            QStringList fields;
            for (const QVariant& value : row)
                fields.append(value.isValid() ? data::valueText(value) : QStringLiteral("NULL"));
            result.append(fields.join(u'|'));
        }
        return result;
    }
    static QString refusal(data::Connection& connection, const QByteArray& sql) {
        try {
            connection.execute(QString::fromUtf8(sql));
        } catch (const data::ServerError& error) {
            return error.text();
        }
        return {};
    }
    static QString refusalToOpen(const QString& file, tsql::OpenMode mode) {
        try {
            tsql::open(file, mode);
        } catch (const data::ServerError& error) {
            return error.text();
        }
        return {};
    }

    QTemporaryDir folder;
};

// Another program's hold on the file.
class Intruder {
public:
    explicit Intruder(const QString& file) { sqlite3_open(file.toUtf8().constData(), &m_handle); }
    ~Intruder() { sqlite3_close(m_handle); }
    Intruder(const Intruder&) = delete;
    Intruder& operator=(const Intruder&) = delete;
    int run(const char* sql) { return sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr); }

private:
    sqlite3* m_handle = nullptr;
};

TEST_F(EngineTest, CatalogueSurvivesReopening) {
    opened()->execute(
        "create table t(id int identity(5,1), code varchar(3) not null constraint PK_t primary key, "
        "share numeric(6,2) default 1.5, letter char(2), name nvarchar(9) null)"
        "create index codef on t(share)"
        "insert into t(code) values('a')");
    const Owned again = opened(tsql::OpenMode::Existing);
    const data::ResultSet shape = again->execute(QStringLiteral("select * from t"));
    EXPECT_TRUE(shape.columns[0].identity);
    EXPECT_FALSE(shape.columns[1].nullable);
    EXPECT_EQ(shape.columns[1].length, 3);
    EXPECT_EQ(shape.columns[4].length, 9);
    EXPECT_EQ(refusal(*again, "insert into t(code) values('A ')"),
              "Violation of PRIMARY KEY constraint 'PK_t'. Cannot insert duplicate key in object 'dbo.t'.");
    EXPECT_NE(refusal(*again, "create index CODEF on t(code)"), QString());
    again->execute(QStringLiteral("insert into t(code, letter) values('b', 'x')"));
    EXPECT_EQ(rows(*again, "select id, code, share, letter+'|' from t order by code"),
              QStringList({"5|a|1.5|NULL", "6|b|1.5|x |"}));
    EXPECT_EQ(refusal(*again, "update t set share='12345.1'"),
              "Arithmetic overflow error converting varchar to data type numeric.");
}

TEST_F(EngineTest, TemporaryTablesLiveAsLongAsTheLastConnection) {
    Owned first = opened();
    {
        const Owned second = tsql::open(folder.path() + "/./company.db", tsql::OpenMode::Existing);
        first->execute(QStringLiteral("create table ##shared(n int) insert into ##shared values(1)"));
        EXPECT_EQ(rows(*second, "select n from ##shared"), QStringList("1"));
        first.reset();
        EXPECT_EQ(rows(*second, "select n from ##shared"), QStringList("1"));
    }
    EXPECT_EQ(refusal(*opened(), "select n from ##shared"), "Invalid object name '##shared'.");
    const Owned inMemory = tsql::open(":memory:", tsql::OpenMode::Create);
    inMemory->execute(QStringLiteral("create table t(n int)"));
    EXPECT_NE(refusal(*tsql::open(":memory:", tsql::OpenMode::Create), "select * from t"), QString());
}

TEST_F(EngineTest, RollbackCoversTemporaryTables) {
    const Owned connection = opened();
    connection->execute(QStringLiteral("create table t(n int) insert into t values(1)"));
    connection->begin();
    connection->execute(QStringLiteral("select * into ##copy from t"));
    connection->rollback();
    EXPECT_FALSE(connection->inTransaction());
    EXPECT_EQ(refusal(*connection, "select * from ##copy"), "Invalid object name '##copy'.");
    // Dropped tables come back; an unfinished transaction does not survive its connection.
    connection->execute(QStringLiteral("create table ##kept(n int) insert into ##kept values(3)"));
    {
        const Owned second = opened();
        second->begin();
        second->execute(QStringLiteral("drop table ##kept delete from t"));
    }
    EXPECT_EQ(rows(*connection, "select * from ##kept"), QStringList("3"));
    EXPECT_EQ(rows(*connection, "select * from t"), QStringList("1"));
}

TEST_F(EngineTest, ARefusedStatementLeavesNoHalf) {
    const Owned connection = opened();
    connection->execute(
        QStringLiteral("create table t(n int not null, s varchar(3)) "
                       "insert into t values(1, 'a') insert into t values(2147483647, 'b') "
                       "create table longer(n int, s varchar(9)) insert into longer values(5, 'x') "
                       "insert into longer values(6, 'too long')"));
    EXPECT_NE(refusal(*connection, "update t set n=n+1"), QString());
    EXPECT_NE(refusal(*connection, "insert into t select n, s from longer"), QString());
    EXPECT_NE(refusal(*connection, "update t set n=case when s='b' then null else 9 end"), QString());
    EXPECT_NE(refusal(*connection, "alter table t add a int, b int not null"), QString());
    EXPECT_NE(refusal(*connection, "select s+'' as s, 1/(n-6) as q into half from longer"), QString());
    EXPECT_NE(refusal(*connection, "select * from half"), QString());
    EXPECT_EQ(rows(*connection, "select * from t"), QStringList({"1|a", "2147483647|b"}));
}

TEST_F(EngineTest, PlansFollowTheTables) {
    const Owned connection = opened();
    const char* all = "select * from t";
    connection->execute(QStringLiteral("create table t(n int) insert into t values(1)"));
    EXPECT_EQ(rows(*connection, all), QStringList("1"));
    connection->execute(QStringLiteral("alter table t add s varchar(2)"));
    EXPECT_EQ(rows(*connection, all), QStringList("1|NULL"));
    connection->execute(QStringLiteral("alter table t alter column n varchar(5)"));
    EXPECT_EQ(connection->execute(QString::fromLatin1(all)).columns[0].type, data::ColumnType::Text);
    connection->execute(QStringLiteral("drop table t"));
    EXPECT_EQ(refusal(*connection, all), "Invalid object name 't'.");
    connection->execute(QStringLiteral("create table t(q float)"));
    EXPECT_EQ(connection->execute(QString::fromLatin1(all)).columns[0].name, "q");

    // A table that another program makes is found.
    Intruder(path()).run("CREATE TABLE strange(n int); INSERT INTO strange VALUES (4)");
    EXPECT_EQ(rows(*connection, "select * from strange"), QStringList("4"));
}

TEST_F(EngineTest, StreamsRowByRowAndLetsGo) {
    const Owned connection = opened();
    connection->execute(
        QStringLiteral("create table t(n int, f float, s varchar(5))"
                       "insert into t values(1, 0.5, 'ي'), (2, 1000000, NULL), (3, -3, '')"));
    QStringList seen;
    const auto columns = [&](const QList<data::ColumnInfo>& list) {
        seen.append(QString::number(list.size()));
    };
    connection->stream(QStringLiteral("select * from t"), columns, [&](const data::RowView& row) {
        seen.append(QString::fromUtf8(row.text(0)) + u'|' + QString::fromUtf8(row.text(1)) + u'|' +
                    (row.isNull(2) ? QStringLiteral("NULL") : QString::fromUtf8(row.text(2))));
        return row.value(0).toInt() < 2;
    });
    EXPECT_EQ(seen, QStringList({"3", "1|0.5|ي", "2|1000000|NULL"}));
    // An exception of the reader ends the statement as well; the table can be dropped at once.
    EXPECT_THROW(connection->stream(QStringLiteral("select * from t"), columns,
                                    [](const data::RowView&) -> bool { throw data::SilentAbort(); }),
                 data::SilentAbort);
    connection->execute(QStringLiteral("drop table t"));
    EXPECT_NE(refusal(*connection, "select * from t"), QString());
}

TEST_F(EngineTest, TheSameTextCanRunInsideItself) {
    const Owned outer = opened(), inner = opened();
    outer->execute(QStringLiteral("create table t(n int) insert into t values(1), (2)"));
    const QString sql = QStringLiteral("select n from t");
    QStringList seen;
    outer->stream(
        sql, [](const QList<data::ColumnInfo>&) {},
        [&](const data::RowView& row) {
            seen.append(row.value(0).toString() + rows(*inner, "select n from t").join(u','));
            return true;
        });
    EXPECT_EQ(seen, QStringList({"11,2", "21,2"}));
}

TEST_F(EngineTest, LongChainsRunAndEndlessNestingIsRefused) {
    const Owned connection = opened();
    const auto chain = [](const QString& term, int count, const QString& joint) {
        return QStringList(count, term).join(joint);
    };
    const QString conditions = chain(QStringLiteral("(n=1 or n=2)"), 150, QStringLiteral(" and "));
    connection->execute(QStringLiteral("create table t(n int) insert into t values(2)"));
    EXPECT_EQ(
        rows(*connection, ("select " + chain("n", 150, "+") + "-(1-n) from t where " + conditions).toUtf8()),
        QStringList("301"));
    // What stands in itself is bound once a level, whichever way it nests.
    const auto nested = [](const QString& opening, const QString& kernel, const QString& closing,
                           int levels) {
        return ("select " + opening.repeated(levels) + kernel + closing.repeated(levels) + " from t")
            .toUtf8();
    };
    EXPECT_EQ(rows(*connection, nested("case when n=1 then 5 else ", "n", " end", 100)), QStringList("2"));
    EXPECT_EQ(rows(*connection, nested("case when n=2 then ", "'7'", " end", 100)), QStringList("7"));
    EXPECT_EQ(rows(*connection, nested("case when n<2 then 0.5 when n=2 then ", "n", " else 9 end", 15)),
              QStringList("2"));
    EXPECT_EQ(rows(*connection, nested("coalesce(null, ", "'7'", ", 8)", 15)), QStringList("7"));
    EXPECT_EQ(rows(*connection, nested("nullif(", "'7'", ", '8')", 15)), QStringList("7"));
    EXPECT_EQ(rows(*connection, nested("case when ", "n", " between 2 and 3 then 2 else 0 end", 12)),
              QStringList("2"));
    EXPECT_EQ(rows(*connection, nested("case ", "n", " when 2 then 2 else 0 end", 12)), QStringList("2"));
    // A value that is compared in several types is written for each.
    const QString doubling[][2] = {{"nullif(", ", 1)"},
                                   {"case when ", " between 1 and '9' then '1' end"},
                                   {"case ", " when 1 then '1' when '1' then '2' end"}};
    for (const auto& [opening, closing] : doubling)
        EXPECT_TRUE(refusal(*connection, nested(opening, "'1'", closing, 70)).contains("nested too deeply"));
    for (const char* opening : {"(", "not ", "- ", "(select ", "case when ", "ltrim("})
        EXPECT_TRUE(refusal(*connection, ("select 1 where " + chain(opening, 20000, "")).toUtf8())
                        .contains("nested too deeply"));
    EXPECT_TRUE(refusal(*connection, chain("begin ", 20000, "").toUtf8()).contains("nested too deeply"));
    // Chains within calls within chains are as deep as all of them together.
    QString tower = QStringLiteral("'a'");
    for (int level = 0; level < 60; ++level)
        tower = "ltrim(" + tower + QStringLiteral("+'a'").repeated(300) + ")";
    EXPECT_TRUE(refusal(*connection, ("select " + tower).toUtf8()).contains("nested too deeply"));
}

TEST_F(EngineTest, AFileInUseRefusesAndRecovers) {
    const Owned connection = opened();
    connection->execute(QStringLiteral("create table t(n int)"));
    Intruder intruder(path());
    ASSERT_EQ(intruder.run("BEGIN IMMEDIATE"), SQLITE_OK);
    EXPECT_TRUE(refusal(*connection, "insert into t values(1)").startsWith("Lock request time out"));
    EXPECT_THROW(connection->begin(), data::ServerError);
    EXPECT_FALSE(connection->inTransaction());
    EXPECT_EQ(rows(*connection, "select * from t"), QStringList());
    intruder.run("ROLLBACK");
    connection->execute(QStringLiteral("insert into t values(1)"));
    EXPECT_EQ(rows(*connection, "select * from t"), QStringList("1"));
}

TEST_F(EngineTest, OpensNoFileThatIsNoCompany) {
    EXPECT_NE(refusalToOpen(folder.path(), tsql::OpenMode::Existing), QString());
    QFile empty(path("empty.db"));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
    empty.close();
    EXPECT_NE(refusalToOpen(empty.fileName(), tsql::OpenMode::Existing), QString());
}

}  // namespace
