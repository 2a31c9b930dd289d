// Company files: what a new one holds, and that the demonstration company is whole and always the same.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "Backups.h"
#include "CompanyCheck.h"
#include "CompanyFile.h"
#include "Embedded.h"
#include "Errors.h"
#include "HostCompany.h"
#include "Odbc.h"
#include "Query.h"
#include "WireServer.h"

namespace {

class Company : public testing::Test {
protected:
    std::unique_ptr<data::Connection> demo(const QString& name, int employees) {
        host::createDemoCompany(folder.filePath(name), {employees});
        return tsql::open(folder.filePath(name), tsql::OpenMode::Existing);
    }

    static QString value(data::Connection& connection, const QString& sql) {
        return data::valueText(connection.execute(sql).rows.at(0).at(0));
    }

    static QString content(data::Connection& connection, const QString& table) {
        QString text;
        for (const QVariantList& row : connection.execute("select * from " + table).rows)
            for (const QVariant& cell : row)
                text += data::valueText(cell) + u'\t';
        return text;
    }

    QTemporaryDir folder;
};

TEST_F(Company, IsThereOnlyOnceItIsWhole) {
    EXPECT_THROW(host::createEmptyCompany(folder.filePath("nowhere/x.db")), data::Refusal);
    QFile mine(folder.filePath("mine.db"));
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    EXPECT_THROW(host::createEmptyCompany(mine.fileName()), data::Refusal);
    EXPECT_EQ(mine.size(), 0);
    mine.remove();
    // What a program that was ended half-way left behind is in nobody's way.
    QFile half(folder.filePath("x.db.making"));
    ASSERT_TRUE(half.open(QIODevice::WriteOnly));
    half.write("half");
    half.close();
    EXPECT_THROW(host::createCompanyFile(folder.filePath("x.db"),
                                         [&](data::Connection& connection) {
                                             EXPECT_FALSE(QFile::exists(folder.filePath("x.db")));
                                             connection.execute("select * from nothing_here");
                                         }),
                 data::ServerError);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    host::createEmptyCompany(folder.filePath("x.db"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("x.db"));
}

TEST_F(Company, ScriptsRunBatchByBatch) {
    QFile script(folder.filePath("script.sql"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write(
        "create table t(s varchar(20))\r\n go \r\ninsert into t values('GO')\ninsert into t values('let''s "
        "GO')\nGo");
    script.close();
    const auto connection = tsql::open(":memory:", tsql::OpenMode::Create);
    host::runScript(*connection, script.fileName());
    EXPECT_EQ(value(*connection, "select count(*) from t"), "2");
    EXPECT_THROW(host::runScript(*connection, folder.filePath("missing.sql")), data::ServerError);
}

TEST_F(Company, DemoIsWhole) {
    const auto connection = demo("demo.db", 240);
    const std::pair<const char*, const char*> counts[] = {
        {"person", "240"},
        {"Payroll P inner join person E on P.code_0=E.code where P.code_1>0 and P.code_25 is not null",
         "2880"},
        {"UserPrivilege where UserId='1' and TableName='GROHTAFSILY2'", "3"},
        {"Tax A inner join Tax B on B.Code=A.Code+1 and B.Mablagh_1=A.Mablagh_2+1", "5"},
        {"sysobjects where name like 'Demo%'", "0"},
    };
    for (const auto& [rows, count] : counts)
        EXPECT_EQ(value(*connection, QStringLiteral("select count(*) from ") + rows), count) << rows;
    const std::tuple<const char*, const char*, const char*, const char*> references[] = {
        {"person", "depart", "depart", "Code_field"},
        {"person", "resteh", "Resteh", "Code_field"},
        {"person", "semat", "semat", "Code_field"},
        {"person", "grade", "grohpaye", "Code_field"},
        {"person", "code_biemh+1", "paybimeh", "Code_field"},
        {"person", "code_bank", "Bank", "Bankcode"},
        {"person", "tafsily2", "Tafsily2", "Tafsily2"},
        {"Vam", "code", "person", "code"},
        {"Vam", "Code_vam", "Payvam", "Code_field"},
        {"Tafsily2", "substring(Tafsily2, 1, 2)", "GrohTafsily2", "Tafsily2GrohCod"},
    };
    for (const auto& [from, field, to, key] : references)
        EXPECT_EQ(
            value(*connection, QStringLiteral("select count(*) from %1 where %2 not in (select %4 from %3)")
                                   .arg(from, field, to, key)),
            "0")
            << from << '.' << field;
}

TEST_F(Company, DemoIsTheSameEveryTime) {
    const auto one = demo("one.db", 30);
    const auto two = demo("two.db", 30);
    for (const char* table : {"person", "Payroll", "Paytraf", "Vam", "Paymozd"})
        EXPECT_EQ(content(*one, table), content(*two, table)) << table;
}

TEST(CompanyOnServer, IsMadeThroughTheLine) {
    wire::WireServer server(
        [] { return tsql::open(":memory:", tsql::OpenMode::Create, tsql::RowPlaces::Hidden); });
    const auto connection = odbc::open(server.connectionString());
    EXPECT_FALSE(host::holdsCompany(*connection));
    host::createCompanyOn(*connection, host::DemoSize{12});
    EXPECT_TRUE(host::holdsCompany(*connection));
    EXPECT_EQ(connection->execute("select count(*) from Payroll").rows[0][0], 12 * 12);
}

TEST_F(Company, IsCopiedOnceADayAndComesBackAsItWas) {
    const QString file = folder.filePath("c.company");
    const auto goesOn = [] { return true; };
    auto connection = demo("c.company", 5);
    EXPECT_EQ(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther), 0);
    connection->execute("update Bank set BankNam='before' where BankCode=1");
    host::backUpToday(file, [] { return false; });
    EXPECT_TRUE(host::backupsOf(file).isEmpty());
    host::backUpToday(file, goesOn);
    connection->execute("update Bank set BankNam='after' where BankCode=1");
    host::backUpToday(file, goesOn);
    ASSERT_EQ(host::backupsOf(file).size(), 1);
    const QString backup = host::backupsOf(file).first().file;
    EXPECT_EQ(QFile::permissions(backup) & (QFile::ReadGroup | QFile::ReadOther), 0);
    connection.reset();
    host::restoreBackup(file, backup);
    connection = tsql::open(file, tsql::OpenMode::Existing);
    EXPECT_EQ(value(*connection, "select BankNam from Bank where BankCode=1"), "before");
    connection.reset();

    // What stood before is there as well; a copy that is cut short is not put back.
    ASSERT_EQ(host::backupsOf(file).size(), 2);
    host::restoreBackup(file, host::backupsOf(file).first().file);
    connection = tsql::open(file, tsql::OpenMode::Existing);
    EXPECT_EQ(value(*connection, "select BankNam from Bank where BankCode=1"), "after");
    connection.reset();
    ASSERT_TRUE(QFile::resize(backup, QFileInfo(backup).size() / 2));
    EXPECT_THROW(host::restoreBackup(file, backup), data::Refusal);
    QFile::remove(backup);
    const QDir backups = QFileInfo(backup).dir();
    for (int day = 10; day < 28; ++day)
        QFile::copy(file, backups.filePath(QStringLiteral("c-202401%1.company").arg(day)));
    host::backUpToday(file, goesOn);
    EXPECT_EQ(host::backupsOf(file).size(), 10);
    EXPECT_EQ(host::backupsOf(file).last().made.date(), QDate(2024, 1, 21));
}

TEST_F(Company, TellsWhatIsWrongWithIt) {
    auto connection = demo("c.company", 5);
    EXPECT_EQ(host::checkCompany(*connection), QStringList());
    connection->execute(
        "delete from Paymozd where codemah=' 7' and Code_field=3 "
        "update Payvam set Code_field=1 where codemah=' 7' and Code_field=2 "
        "update person set code_bank=77 where code='00000001' drop table J_Arz alter table Tax drop column "
        "Percent_k");
    const QStringList found = host::checkCompany(*connection);
    for (const char* part :
         {"table j_arz is missing", "table tax has no column percent_k",
          "Paymozd, month 7: 24 codes, the highest is 25", "Payvam, month 7: code 1 has 2 rows",
          "Payroll.code_3, month 7:", "Vam.Code_Vam: code 2 of"})
        EXPECT_FALSE(found.filter(part).isEmpty()) << part << "\n" << qPrintable(found.join(u'\n'));
    EXPECT_THROW(host::checkCompanyFile(folder.filePath("none.company")), data::Refusal);
}

}  // namespace
