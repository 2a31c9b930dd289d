// Amounts follow their items' codes: the one rewrite of the month must give what moving item by item
// out of a backup gives.
#include <gtest/gtest.h>

#include <random>

#include "AmountMove.h"
#include "DatabaseHelpers.h"
#include "Embedded.h"
#include "ModuleVariables.h"
#include "Query.h"
#include "WorkCopy.h"

namespace {

constexpr int kColumns = 12;
const QString kMonth = QStringLiteral(" 7");
const definition::AmountTable kAmounts = {QStringLiteral("Paytraf"), QString()};

struct Company {
    std::unique_ptr<data::Connection> connection =
        tsql::open(QStringLiteral(":memory:"), tsql::OpenMode::Create);
    data::Query query{connection.get()};
    data::HostDatabase db{&query, connection.get()};

    explicit Company(unsigned seed) {
        QStringList columns;
        for (int i = 1; i <= kColumns; ++i)
            columns.append(QStringLiteral("code_%1 int not null default 0").arg(i));
        connection->execute("create table Paytraf (code_0 varchar(8), codemah varchar(2), " +
                            columns.join(u',') + ")");
        std::mt19937 random(seed);
        for (int employee = 1; employee <= 5; ++employee)
            for (const char* month : {" 6", " 7"}) {
                QStringList values;
                for (int i = 1; i <= kColumns; ++i)
                    values.append(QString::number(random() % 100000));
                connection->execute(QStringLiteral("insert into Paytraf values ('%1', '%2', %3)")
                                        .arg(employee)
                                        .arg(QLatin1String(month), values.join(u',')));
            }
    }

    void move(const QList<definition::ItemCode>& items) {
        const definition::AmountMove move =
            definition::amountMove(kAmounts, kMonth, items, Column_Names(db, kAmounts.name));
        for (const QString& statement : move.newColumns)
            connection->execute(statement);
        Exec_Sql(db, move.statement);
    }
    QList<QVariantList> rows() {
        return connection->execute("select * from Paytraf order by codemah, code_0").rows;
    }
};

// Statement by statement, as an operator of the server would do it by hand.
void moveOneByOne(Company& company, const QList<definition::ItemCode>& items) {
    data::Connection& connection = *company.connection;
    connection.execute("Select * Into ##backup from paytraf where codemah = ' 7'");
    for (const definition::ItemCode& item : items)
        if (item.before == 0)
            connection.execute(
                QStringLiteral("Update Paytraf Set code_%1=0 where Codemah=' 7'").arg(item.now));
        else if (item.before <= kColumns && item.now <= kColumns)
            connection.execute(
                QStringLiteral("Update Paytraf Set code_%1 = A.code_%2 From Paytraf P, ##backup A Where "
                               "P.code_0=A.code_0 And P.codemah = ' 7' And A.codemah = ' 7'")
                    .arg(item.now)
                    .arg(item.before));
    connection.execute("drop table ##backup");
}

}  // namespace

TEST(AmountMove, EqualsMovingItemByItem) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        // Some items stay, some went, some are new, and one stood beyond the table's columns.
        QList<definition::ItemCode> items;
        QList<qint64> before = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 40};
        std::shuffle(before.begin(), before.end(), random);
        const int kept = 3 + static_cast<int>(random() % 7);
        for (int i = 0; i < kept; ++i)
            items.append({i + 1, random() % 5 == 0 ? 0 : before[i]});
        Company oneByOne(seed), oneRewrite(seed);
        moveOneByOne(oneByOne, items);
        oneRewrite.move(items);
        EXPECT_EQ(oneRewrite.rows(), oneByOne.rows()) << "seed " << seed;
    }
}

TEST(AmountMove, NeverTouchesTheEmployeesCode) {
    Company company(1);
    const auto before = company.rows();
    company.move({{0, 3}, {0, 0}});
    EXPECT_EQ(company.rows(), before);
}

TEST(WorkTables, NeverTakeAStrangersName) {
    Company company(1);
    data::HostContext context;
    context.Temp_Prefix = QStringLiteral("W_");
    const SuiteHost host = {&company.db, &context};
    QSet<QString> names;
    for (int i = 0; i < 5; ++i) {
        const QString name = definition::freeTableName(host, QStringLiteral("1"));
        company.connection->execute("create table " + name + " (a int)");
        names.insert(name);
    }
    EXPECT_EQ(names.size(), 5);
    const definition::PageDefinition page = {.table = "Paytraf", .keepsCodes = true};
    definition::WorkCopy copy(page);
    copy.make(host, " 7");
    EXPECT_EQ(company.connection->execute("select * from " + copy.name()).rows.size(), 5);
    copy.drop(company.db);
    EXPECT_EQ(company.connection->execute("select name from sysobjects where name like 'W[_]%'").rows.size(),
              5);
}
