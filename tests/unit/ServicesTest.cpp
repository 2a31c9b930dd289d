// What every page asks of the company: the catalogue and the rights of its users.
#include "CompanyFixture.h"
#include "DatabaseHelpers.h"
#include "UserRights.h"

namespace {

using Services = CompanyFixture;

TEST_F(Services, AskTheCatalogue) {
    EXPECT_TRUE(Is_Object_Exist(db(), "  paymozd "));
    EXPECT_FALSE(Is_Object_Exist(db(), "it's not there"));
    run("select 1 as a into ##X");
    EXPECT_TRUE(Is_Column_Exist(db(), "##X", " A "));
    EXPECT_FALSE(Is_Column_Exist(db(), "X", "a"));
    EXPECT_TRUE(Is_Column_Exist(db(), "payroll", "CODE_20"));
    EXPECT_FALSE(Is_Column_Exist(db(), "payroll", "code_0x"));
    run("insert into GrohTafsily2 values ('01', 'توليد ''الف'''), ('02', 'فروش')");
    EXPECT_EQ(Get_Top_Value(db(), "Tafsily2GrohCod", "9'9", "Tafsily2GrohNam", "GrohTafsily2"), "");
    EXPECT_TRUE(Is_Name_Repeated(db(), "GrohTafsily2", "Tafsily2GrohNam", "تولـيد'الف'"));
}

TEST_F(Services, ReadTheRights) {
    for (const char* right : {"12", "121", "1203", "212"})
        run(QStringLiteral("insert into UserSdcDetail(StrId, Parent, [1]) values ('%1', '', 'Y')")
                .arg(right));
    EXPECT_EQ(Get_Rights_Tree(db(), "12", "1"), "12(Y),1203(Y),121(Y),");
    EXPECT_EQ(Get_Rights_Tree(db(), "no such", "1"), "");
}

}  // namespace
