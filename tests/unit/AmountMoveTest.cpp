// Amounts follow their items' codes: the one rewrite of the month must give what moving item by item
// out of a backup gives.
#include "AmountMove.h"

#include <random>

#include "CompanyFixture.h"
#include "DatabaseHelpers.h"
#include "WorkCopy.h"

namespace {

constexpr int kCodes = 12, kBeyond = 400;
const definition::AmountTable kAmounts = {QStringLiteral("Paytraf"), QString()};

class AmountMove : public CompanyFixture {
protected:
    // Amounts of five employees in two months.
    void fill(std::mt19937& random) {
        for (int row = 0; row < 10; ++row) {
            QStringList columns, values;
            for (int code = 1; code <= kCodes; ++code) {
                columns.append(QStringLiteral("code_%1").arg(code));
                values.append(QString::number(random() % 100000));
            }
            run(QStringLiteral("insert into Paytraf(code_0, codemah, %1) values ('%2', ' %3', %4)")
                    .arg(columns.join(u','), QString::number(row / 2), QString::number(6 + row % 2),
                         values.join(u',')));
        }
    }
    void move(const QList<definition::ItemCode>& items) {
        const definition::AmountMove move =
            definition::amountMove(kAmounts, " 7", items, Column_Names(db(), kAmounts.name));
        for (const QString& statement : move.newColumns)
            run(statement);
        Exec_Sql(db(), move.statement);
    }
    // Statement by statement, as an operator of the server would do it by hand.
    void moveOneByOne(const QList<definition::ItemCode>& items) {
        run("Select * Into ##backup from paytraf where codemah = ' 7'");
        for (const definition::ItemCode& item : items)
            if (item.before == 0)
                run(QStringLiteral("Update Paytraf Set code_%1=0 where Codemah=' 7'").arg(item.now));
            else if (item.before != kBeyond)
                run(QStringLiteral("Update Paytraf Set code_%1 = A.code_%2 From Paytraf P, ##backup A Where "
                                   "P.code_0=A.code_0 And P.codemah = ' 7'")
                        .arg(item.now)
                        .arg(item.before));
    }
    QList<QVariantList> rows() { return run("select * from Paytraf order by codemah, code_0").rows; }
};

TEST_F(AmountMove, EqualsMovingItemByItem) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        const data::Transaction undone(objects->connection());
        fill(random);
        // Some items stay, some went, some are new, and one stood beyond the table's columns.
        QList<definition::ItemCode> items;
        QList<qint64> before = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, kBeyond};
        std::shuffle(before.begin(), before.end(), random);
        const int kept = 3 + static_cast<int>(random() % 7);
        for (int i = 0; i < kept; ++i)
            items.append({i + 1, random() % 5 == 0 ? 0 : before[i]});
        run("select * into W_before from Paytraf");
        moveOneByOne(items);
        const QList<QVariantList> expected = rows();
        run("delete from Paytraf insert into Paytraf select * from W_before");
        move(items);
        EXPECT_EQ(rows(), expected) << "seed " << seed;
    }
}

TEST_F(AmountMove, NeverTouchesTheEmployeesCode) {
    std::mt19937 random(1);
    fill(random);
    const auto before = rows();
    move({{0, 3}, {0, 0}});
    EXPECT_EQ(rows(), before);
}

using WorkTables = CompanyFixture;

TEST_F(WorkTables, NeverTakeAStrangersName) {
    context().Temp_Prefix = QStringLiteral("W_");
    const SuiteHost host = {&db(), &context()};
    run("insert into Paytraf(code_0, codemah) values ('1', ' 7')");
    QSet<QString> names;
    for (int i = 0; i < 5; ++i) {
        const QString name = definition::freeTableName(host, QStringLiteral("1"));
        run("create table " + name + " (a int)");
        names.insert(name);
    }
    EXPECT_EQ(names.size(), 5);
    const definition::PageDefinition page = {.table = "Paytraf", .keepsCodes = true};
    definition::WorkCopy copy(page);
    copy.make(host, " 7");
    EXPECT_EQ(number("select count(*) from " + copy.name()), 1);
    copy.drop(db());
    EXPECT_EQ(number("select count(*) from sysobjects where name like 'W[_]%'"), 5);
}

}  // namespace
