// The layouts of banks' and loans' files are tables named after their rows, and go where these go.
#include "CompanyFixture.h"
#include "Query.h"
#include "Untdefine.h"

namespace {

using layouts::BankFile;
using Layouts = CompanyFixture;

TEST_F(Layouts, OfBanksFollowTheirRows) {
    for (const int row : {1, 2, 3, 5, 6})
        run(QStringLiteral(
                "create table BCK_FBANKV%1(F_NAME varchar(15), F_LEN int) insert into BCK_FBANKV%1 "
                "values ('was %1', NULL)")
                .arg(row));
    const auto names = [this] {
        QStringList names;
        for (int row = 1; row <= 7; ++row) {
            const QString table = QStringLiteral("BCK_FBANKV%1").arg(row);
            const bool there = number("select count(*) from sysobjects where name='" + table + "'") > 0;
            names.append(there ? run("select F_NAME from " + table).rows[0][0].toString().right(1) : "-");
        }
        return names.join(u' ');
    };
    const auto move = [this](const QList<layouts::LayoutMove>& moves) {
        run(layouts::bankLayoutMoves(db(), BankFile::Loan, moves).join(u'\n'));
    };
    // A swap, a chain over a gap, a deletion.
    {
        data::Transaction transaction(objects->connection());
        move({{1, 2}, {2, 1}, {3, 0}, {4, 3}, {5, 4}, {6, 5}, {7, 6}});
        transaction.commit();
    }
    EXPECT_EQ(names(), "2 1 - 5 6 - -");
    // A cycle; what is left of a row long gone does not become the layout of one that takes its place.
    move({{1, 4}, {4, 2}, {2, 1}, {3, 5}});
    EXPECT_EQ(names(), "1 5 - 2 - - -");
    {
        data::Transaction transaction(objects->connection());
        move({{1, 2}, {2, 1}, {4, 0}});
    }
    EXPECT_EQ(names(), "1 5 - 2 - - -") << "rolled back";
}

}  // namespace
