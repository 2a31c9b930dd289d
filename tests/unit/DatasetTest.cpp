#include <gtest/gtest.h>

#include "Dataset.h"
#include "Embedded.h"
#include "Errors.h"
#include "Query.h"

using data::Dataset;
using State = data::Dataset::State;

namespace {

// Items as a page has them: no key, a code to order by, a name, a length, a mark.
class DatasetTest : public testing::Test {
protected:
    void SetUp() override {
        server = tsql::open(QStringLiteral(":memory:"), tsql::OpenMode::Create);
        server->execute(
            QStringLiteral("create table items (code int, name varchar(10), length float, mark varchar(1))"));
        for (const char* row : {"3,'three',9,''", "1,'one',7.5,NULL", "2,'two',9,''"})
            server->execute(QStringLiteral("insert into items values (%1)").arg(QLatin1String(row)));
        server->setMonitor([this](const QString& sql) { sent.append(sql); });
        rows.setConnection(server.get());
        rows.setTableName(QStringLiteral("items"));
        rows.setIndexFieldNames(QStringLiteral("code"));
        rows.open();
        sent.clear();
    }

    // The table as the server has it, one row a line.
    QString stored(
        const QString& sql = QStringLiteral("select code,name,length,mark from items order by code,name")) {
        QStringList lines;
        for (const QVariantList& row : server->execute(sql).rows) {
            QStringList fields;
            for (const QVariant& value : row)
                fields.append(value.isValid() ? data::valueText(value) : QStringLiteral("NULL"));
            lines.append(fields.join(u'|'));
        }
        return lines.join(u'\n');
    }

    QString shown(const QString& column = QStringLiteral("name")) {
        QStringList values;
        for (int row = 0; row < rows.recordCount(); ++row)
            values.append(data::valueText(rows.valueAt(row, rows.columnIndex(column))));
        return values.join(u' ');
    }

    // Notes every event by its name.
    void watch() {
        const auto note = [this](const char* name) {
            return [this, name] { events.append(QLatin1String(name)); };
        };
        rows.beforeInsert = note("beforeInsert"), rows.afterInsert = note("afterInsert");
        rows.beforeEdit = note("beforeEdit"), rows.afterEdit = note("afterEdit");
        rows.beforePost = note("beforePost"), rows.afterPost = note("afterPost");
        rows.beforeDelete = note("beforeDelete"), rows.afterDelete = note("afterDelete");
        rows.beforeScroll = note("beforeScroll"), rows.afterScroll = note("afterScroll");
        rows.afterCancel = note("afterCancel"), rows.updateRecord = note("updateRecord");
    }
    QString heard() {
        QString all = events.join(u' ');
        events.clear();
        return all;
    }

    std::unique_ptr<data::Connection> server;
    Dataset rows;
    QStringList sent, events;
};

void give(Dataset& rows, const char* column, const QVariant& value) {
    rows.setValue(QLatin1String(column), value);
}

TEST_F(DatasetTest, OrdersRowsAndMovesAmongThem) {
    EXPECT_EQ(shown(), "one two three");
    rows.moveTo(1);
    rows.setIndexFieldNames(QStringLiteral("name"));
    EXPECT_EQ(shown(), "one three two");
    EXPECT_EQ(rows.text("name"), "two") << "the current row is kept";
    EXPECT_THROW(rows.setIndexFieldNames(QStringLiteral("nowhere")), data::ServerError);
    EXPECT_EQ(rows.indexFieldNames(), "name");
    EXPECT_EQ(shown(), "one three two");
    rows.close();
    EXPECT_EQ(rows.row(), -1);
    EXPECT_FALSE(rows.value("name").isValid());
}

TEST_F(DatasetTest, EventsRunInOrder) {
    watch();
    rows.next();
    EXPECT_EQ(heard(), "updateRecord beforeScroll afterScroll");
    rows.append();
    EXPECT_EQ(heard(), "updateRecord beforeInsert beforeScroll afterInsert afterScroll");
    rows.cancel();
    EXPECT_EQ(heard(), "beforeScroll afterCancel afterScroll");
    give(rows, "name", "zwei");
    EXPECT_EQ(heard(), "beforeEdit afterEdit");
    rows.first();
    EXPECT_EQ(heard(), "updateRecord updateRecord beforePost afterPost beforeScroll afterScroll");
    rows.deleteRow();
    EXPECT_EQ(heard(), "beforeDelete beforeScroll afterDelete afterScroll");
    EXPECT_EQ(rows.row(), 0) << "the row behind it took its place";
}

TEST_F(DatasetTest, PostsOnlyWhatChanged) {
    give(rows, "length", 7.5);
    EXPECT_FALSE(rows.modified());
    rows.checkBrowseMode();
    EXPECT_TRUE(sent.filter(QStringLiteral("UPDATE")).isEmpty()) << "an unchanged row is not stored";

    give(rows, "name", "uno");
    EXPECT_EQ(rows.originalValue(1), "one");
    EXPECT_EQ(rows.state(), State::Edit);
    rows.post();
    EXPECT_EQ(rows.state(), State::Browse);
    const QStringList updates = sent.filter(QStringLiteral("UPDATE"));
    ASSERT_EQ(updates.size(), 1);
    EXPECT_TRUE(updates[0].startsWith(QStringLiteral("UPDATE [items] SET [name]='uno' WHERE ")));
    EXPECT_EQ(stored(), "1|uno|7.5|NULL\n2|two|9|\n3|three|9|");

    rows.append();
    give(rows, "code", 4);
    give(rows, "name", "four");
    sent.clear();
    rows.post();
    ASSERT_EQ(sent.size(), 1) << "stored and read back";
    EXPECT_TRUE(sent[0].startsWith(QStringLiteral("INSERT INTO [items] ([code],[name]) VALUES (4,'four')")));
    EXPECT_EQ(rows.text("name"), "four");
    give(rows, "name", "vier");
    rows.post();
    EXPECT_EQ(stored(QStringLiteral("select name from items where code=4")), "vier") << "its key was found";
}

TEST_F(DatasetTest, ANewRowStaysWhereItWasPutUntilARefresh) {
    rows.insert();
    give(rows, "code", 9);
    give(rows, "name", "nine");
    rows.next();
    EXPECT_EQ(shown(), "nine one two three");
    EXPECT_EQ(rows.text("name"), "one");
    rows.refresh();
    EXPECT_EQ(shown(), "one two three nine");
    EXPECT_EQ(rows.text("name"), "one");
}

TEST_F(DatasetTest, DefaultsDoNotCountAsTheOperatorsWork) {
    rows.afterInsert = [this] { give(rows, "length", 9); };
    rows.append();
    EXPECT_EQ(rows.recordCount(), 4);
    EXPECT_FALSE(rows.modified());
    rows.prior();
    rows.insert();
    rows.moveTo(3);
    EXPECT_EQ(rows.text("name"), "three") << "the rows behind the vanished one moved up";
    EXPECT_EQ(rows.recordCount(), 3);
    rows.append();
    give(rows, "name", "x");
    EXPECT_TRUE(rows.modified());
    give(rows, "name", rows.originalValue(1));
    EXPECT_FALSE(rows.modified());
}

TEST_F(DatasetTest, ARefusalBeforeChangesNothing) {
    const Dataset::Handler refuse = [] { throw data::SilentAbort(); };
    rows.beforeScroll = refuse;
    EXPECT_THROW(rows.next(), data::SilentAbort);
    EXPECT_THROW(rows.append(), data::SilentAbort);
    EXPECT_THROW(rows.deleteRow(), data::SilentAbort);
    EXPECT_EQ(rows.row(), 0);
    EXPECT_EQ(rows.state(), State::Browse);
}

TEST_F(DatasetTest, ARowIsNeverStoredTwice) {
    // More than travel with the insertion.
    for (int code = 10; code < 80; ++code)
        server->execute(QStringLiteral("insert into items values (%1,'other',1,NULL)").arg(code));
    rows.refresh();
    rows.append();
    give(rows, "code", 4);
    // The insertion succeeds, looking for its key does not.
    int statements = 0;
    server->setMonitor([&](const QString&) {
        if (++statements == 2)
            throw data::ServerError(QStringLiteral("the server is busy"));
    });
    EXPECT_THROW(rows.post(), data::ServerError);
    EXPECT_EQ(rows.state(), State::Insert);
    rows.post();
    server->setMonitor({});
    EXPECT_EQ(stored(QStringLiteral("select count(*) from items where code=4")), "1");
}

TEST_F(DatasetTest, ANewRowIsLookedForAmongTheRowsOfItsFilter) {
    for (int code = 10; code < 160; ++code)
        server->execute(QStringLiteral("insert into items values (%1,'other',1,NULL)").arg(code));
    rows.setFilter(QStringLiteral("length>2"));
    const auto add = [&](int code) {
        rows.append();
        give(rows, "code", code);
        give(rows, "length", 5);
        sent.clear();
        rows.post();
        return sent.size();
    };
    EXPECT_EQ(add(160), 1) << "a short list travels with the insertion";
    // Somebody else adds a row, and deletes the one behind it, whose place ours then takes.
    server->execute(QStringLiteral("insert into items values (161,'other',5,NULL)"));
    EXPECT_LE(add(162), 4);
    server->execute(QStringLiteral("delete from items where code=162"));
    EXPECT_LE(add(163), 5);
    give(rows, "name", "ours");
    rows.post();
    EXPECT_EQ(stored(QStringLiteral("select code from items where name='ours'")), "163");
}

TEST_F(DatasetTest, TwinsAreToldApart) {
    server->execute(QStringLiteral("delete from items"));
    for (int i = 0; i < 3; ++i)
        server->execute(QStringLiteral("insert into items values (1,'twin',NULL,NULL)"));
    rows.refresh();
    rows.moveTo(1);
    give(rows, "name", "changed");
    rows.post();
    EXPECT_EQ(shown(), "twin changed twin");
    rows.moveTo(2);
    rows.deleteRow();
    EXPECT_EQ(shown(), "twin changed");
    EXPECT_EQ(stored(QStringLiteral("select name from items order by name")), "changed\ntwin");
    rows.append();
    give(rows, "code", 1);
    give(rows, "name", "twin");
    // Another user stores rows at the same time: ours is the one with our values.
    server->execute(QStringLiteral("insert into items values (8,'other',NULL,NULL)"));
    rows.post();
    server->execute(QStringLiteral("insert into items values (9,'last',NULL,NULL)"));
    give(rows, "mark", "x");
    rows.post();
    EXPECT_EQ(stored(QStringLiteral("select name from items where mark='x'")), "twin");
}

TEST_F(DatasetTest, ARowThatIsGoneIsRefused) {
    rows.value("name");
    server->execute(QStringLiteral("delete from items where code=1"));
    give(rows, "name", "uno");
    EXPECT_THROW(rows.post(), data::Refusal);
    EXPECT_EQ(rows.state(), State::Edit);
    rows.cancel();
    EXPECT_THROW(rows.deleteRow(), data::Refusal);
    EXPECT_EQ(rows.recordCount(), 3);
    rows.refresh();
    EXPECT_EQ(shown(), "two three");
}

TEST_F(DatasetTest, ValuesAreConvertedOrRefused) {
    give(rows, "name", QStringLiteral("علی ۱۲"));
    EXPECT_EQ(rows.text("name"), QStringLiteral("علي 12"));
    give(rows, "length", QStringLiteral(" ۱۲٫۵ "));
    EXPECT_EQ(rows.value("length"), 12.5);
    give(rows, "code", QStringLiteral("1,234"));
    EXPECT_EQ(rows.value("code").toLongLong(), 1234);
    give(rows, "code", "");
    EXPECT_FALSE(rows.value("code").isValid());
    for (const char* bad : {"abc", "1.5", "1e3", "--1", "1,23"})
        EXPECT_THROW(give(rows, "code", QLatin1String(bad)), data::Refusal) << bad;
    EXPECT_THROW(give(rows, "length", "nan"), data::Refusal);
    EXPECT_THROW(give(rows, "name", "eleven char"), data::Refusal);
    EXPECT_THROW(give(rows, "name", QStringLiteral("中")), data::Refusal);
    EXPECT_FALSE(rows.value("code").isValid()) << "a refused value leaves the old one";
}

TEST_F(DatasetTest, AKeyThatIsChangedIsFollowed) {
    server->execute(QStringLiteral(
        "create table keyed (code varchar(2) not null constraint PK_keyed primary key, name varchar(10))"));
    server->execute(QStringLiteral("insert into keyed values ('01','a')"));
    server->execute(QStringLiteral("insert into keyed values ('02','b')"));
    rows.setTableName(QStringLiteral("keyed"));
    rows.open();
    give(rows, "code", "05");
    rows.post();
    give(rows, "name", "again");
    rows.post();
    EXPECT_EQ(stored(QStringLiteral("select code,name from keyed order by code")), "02|b\n05|again");
}

TEST_F(DatasetTest, AllRowsAreReadInTheirOrder) {
    const auto read = [this] { return stored(rows.selection({"name"})).replace(u'\n', u' '); };
    for (const char* order : {"code", "name", "length DESC;code", "code DESC", ""}) {
        rows.setIndexFieldNames(QLatin1String(order));
        EXPECT_EQ(read(), shown()) << order;
    }
    EXPECT_EQ(shown(), "three one two") << "as they were stored";
    rows.setIndexFieldNames("code");
    rows.append();
    give(rows, "code", 4);
    give(rows, "name", "four");
    rows.post();
    EXPECT_EQ(read(), "one two three four");
    rows.first();
    rows.deleteRow();
    rows.setRestriction("code>2");
    EXPECT_EQ(read(), "three four");
}

TEST_F(DatasetTest, LongTablesAreReadInWindows) {
    const data::Transaction transaction(*server);
    for (int code = 4; code <= 1000; ++code)
        server->execute(QStringLiteral("insert into items values (%1,'n%1',NULL,NULL)").arg(code));
    rows.refresh();
    sent.clear();
    for (int row = 500; row < 530; ++row)
        EXPECT_EQ(data::valueText(rows.valueAt(row, 0)), QString::number(row + 1));
    EXPECT_LE(sent.size(), 2) << "a page of rows takes a window or two";
    rows.valueAt(510, 1);
    EXPECT_LE(sent.size(), 2);
    rows.moveTo(700);
    rows.insert();
    EXPECT_EQ(data::valueText(rows.valueAt(701, 0)), "701");
    EXPECT_EQ(data::valueText(rows.valueAt(699, 0)), "700");
}

TEST(Literal, IsWrittenAsTheServerReadsIt) {
    EXPECT_EQ(data::literal({}), "NULL");
    EXPECT_EQ(data::literal(QStringLiteral("o'neil")), "'o''neil'");
    EXPECT_EQ(data::literal(2500000.0), "2500000");
    EXPECT_EQ(data::literal(0.1), "0.1");
    EXPECT_EQ(data::literal(-12.5), "-12.5");
    EXPECT_EQ(data::literal(1e22).toDouble(), 1e22);
    EXPECT_EQ(data::literal(QByteArray("\x01\xAB", 2)), "0x01AB");
}

}  // namespace
