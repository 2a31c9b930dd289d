// How the host opens a company: what an operator reads when it cannot, and the month that is kept.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include "CompanyDoor.h"
#include "CompanyUse.h"
#include "Errors.h"
#include "HostCompany.h"

namespace {

class CompanyDoor : public testing::Test {
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QString refusal(const QString& file) const {
        try {
            host::openCompany(file);
        } catch (const data::Refusal& refusal) {
            return refusal.text();
        }
        return QString();
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(CompanyDoor, SaysWhyAFileIsNotOpened) {
    EXPECT_TRUE(refusal(path("missing.company")).contains("پيدا نشد"));
    EXPECT_FALSE(QFile::exists(path("missing.company")));

    QFile noise(path("noise.company"));
    ASSERT_TRUE(noise.open(QIODevice::WriteOnly));
    noise.write(QByteArray(8192, 'x'));
    noise.close();
    EXPECT_TRUE(refusal(path("noise.company")).contains("آسيب ديده"));
    EXPECT_EQ(QFile(path("noise.company")).size(), 8192);

    host::createEmptyCompany(path("cut.company"));
    ASSERT_TRUE(QFile::resize(path("cut.company"), 6000));
    EXPECT_TRUE(refusal(path("cut.company")).contains("آسيب ديده"));

    host::createEmptyCompany(path("busy.company"));
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path("busy.company").toUtf8().constData(), &other), SQLITE_OK);
    sqlite3_exec(other, "pragma locking_mode=exclusive; begin exclusive", nullptr, nullptr, nullptr);
    EXPECT_TRUE(refusal(path("busy.company")).contains("در برنامه ديگري باز است"));
    sqlite3_close(other);
    EXPECT_EQ(refusal(path("busy.company")), QString());
}

// A program that is killed while it brings its log into the file may leave a file that is shorter than it
// says.
TEST_F(CompanyDoor, OpensWhatIsWholeWithItsLog) {
    host::createEmptyCompany(path("a.company"));
    const auto connection = host::openCompany(path("a.company"));
    connection->execute("create table big(t varchar(4000)) insert into big values (replicate('x', 4000))");
    for (const char* end : {"", "-wal"})
        ASSERT_TRUE(QFile::copy(path("a.company") + end, path("killed.company") + end));
    QFile killed(path("killed.company"));
    ASSERT_TRUE(killed.open(QIODevice::ReadWrite));
    QByteArray header = killed.read(100);
    header[30] = static_cast<char>(header[30] + 1);  // of the pages that there will be
    header.replace(92, 4, header.mid(24, 4));
    killed.seek(0);
    killed.write(header);
    killed.close();
    EXPECT_EQ(refusal(path("killed.company")), QString());
    EXPECT_EQ(host::openCompany(path("killed.company"))->execute("select len(t) from big").rows[0][0].toInt(),
              4000);
}

// A company of the time when kashida still told keys apart.
TEST_F(CompanyDoor, IndexesAnOlderCompanyAnewOnce) {
    const auto sql = [&](const char* statements) {
        sqlite3* file = nullptr;
        sqlite3_open(path("old.company").toUtf8().constData(), &file);
        sqlite3_create_collation(file, "server", SQLITE_UTF8, nullptr,
                                 [](void*, int left, const void* one, int right, const void* other) {
                                     const int shared = memcmp(one, other, std::min(left, right));
                                     return shared != 0 ? shared : left - right;
                                 });
        EXPECT_EQ(sqlite3_exec(file, statements, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(file);
        sqlite3_close(file);
    };
    host::createEmptyCompany(path("old.company"));
    sql("pragma user_version=0; insert into GrohTafsily2 values ('a', 'x'), ('aـ', 'y')");
    EXPECT_TRUE(refusal(path("old.company")).contains("aـ"));
    sql("update GrohTafsily2 set Tafsily2GrohCod='b' where Tafsily2GrohNam='y'");
    EXPECT_EQ(refusal(path("old.company")), QString());
    EXPECT_EQ(host::openCompany(path("old.company"))
                  ->execute("select Tafsily2GrohNam from GrohTafsily2 where Tafsily2GrohCod='Bـ'")
                  .rows.size(),
              1);
}

TEST_F(CompanyDoor, KeepsEveryOptionButTheMonth) {
    host::createEmptyCompany(path("a.company"));
    const auto connection = host::openCompany(path("a.company"));
    EXPECT_EQ(host::paymentMonth(*connection, "0101"), 7);
    const auto options = [&] {
        return connection->execute("select Payment from Options where SCode='0101'")
            .rows.first()
            .first()
            .toString();
    };
    QString expected = options();
    host::setPaymentMonth(*connection, "0101", 11);
    EXPECT_EQ(host::paymentMonth(*connection, "0101"), 11);
    EXPECT_EQ(options(), expected.replace("Month_Curent=7;", "Month_Curent=11;"));
    EXPECT_EQ(host::companyUsers(*connection), (QList<int>{1, 2, 3}));

    connection->execute("update Options set Payment='Month_Curent=seven;' where SCode='0101'");
    EXPECT_EQ(host::paymentMonth(*connection, "0101"), 0);
    connection->execute("delete from Options where SCode='0101'");
    EXPECT_THROW(host::paymentMonth(*connection, "0101"), data::Refusal);
}

TEST_F(CompanyDoor, DropsTheWorkTablesOfProgramsThatAreGone) {
    host::createEmptyCompany(path("a.company"));
    const auto connection = host::openCompany(path("a.company"));
    connection->execute("create table W_123401(a int) create table W_a99(a int) create table W_ages(a int)");
    {
        host::CompanyUse living(path("a.company"));
        ASSERT_TRUE(living.cameFirst());
        living.share();
        EXPECT_FALSE(host::CompanyUse(path("a.company")).cameFirst());
    }
    EXPECT_TRUE(host::CompanyUse(path("a.company")).cameFirst());
    host::dropLeftTables(*connection, "W_");
    const auto left =
        connection->execute("select name from sysobjects where name like 'W[_]%' and xtype='U'");
    ASSERT_EQ(left.rows.size(), 1);
    EXPECT_EQ(left.rows[0][0].toString(), "W_ages");
}

TEST(CompanyOptions, AreReplacedByTheirWholeKey) {
    EXPECT_EQ(host::withOption("Old_Month=3;MONTH=4;", "Month", "5"), "Old_Month=3;MONTH=5;");
    EXPECT_EQ(host::withOption("A=1", "B", "2"), "A=1;B=2;");
    EXPECT_EQ(host::withOption("", "B", "2"), "B=2;");
    EXPECT_EQ(host::withOption("B=", "B", "2"), "B=2");
}

}  // namespace
