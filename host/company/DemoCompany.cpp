// The demonstration company: schema/demo.sql defines it, this file employs people in it, and
// schema/demo-amounts.sql pays them.
#include <QStringList>
#include <array>

#include "CompanyFile.h"
#include "HostCompany.h"

namespace host {

namespace {

constexpr std::array kFirstNames = {
    "علي",   "محمد",    "حسين",    "رضا",   "مهدي", "حسن",    "احمد",   "امير",   "سعيد",   "مجيد",
    "حميد",  "ناصر",    "اكبر",    "بهرام", "داود", "فرهاد",  "كامران", "منوچهر", "پرويز",  "ژاله",
    "فاطمه", "زهرا",    "مريم",    "نرگس",  "سارا", "ليلا",   "نسرين",  "پروين",  "شيرين",  "مينا",
    "الهام", "سميه",    "معصومه",  "طاهره", "اعظم", "فرزانه", "مهناز",  "شهلا",   "نازنين", "گلناز",
    "عباس",  "ابراهيم", "اسماعيل", "يوسف",  "موسي", "كريم",   "رحيم",   "جواد",   "هادي",   "صادق"};
constexpr std::array kFamilies = {
    "محمدي",   "حسيني",    "احمدي",   "كريمي",  "موسوي",  "جعفري",   "رحيمي",  "حيدري",   "قاسمي",  "رضايي",
    "صادقي",   "ابراهيمي", "نوري",    "اكبري",  "عباسي",  "يوسفي",   "رستمي",  "سليماني", "نجفي",   "كاظمي",
    "پورمحمد", "فرهادي",   "شريفي",   "زارعي",  "طاهري",  "نظري",    "مرادي",  "باقري",   "خسروي",  "گودرزي",
    "چراغي",   "ژوليده",   "همتي",    "يزداني", "بهرامي", "صالحي",   "اميني",  "دهقان",   "كشاورز", "آهنگر",
    "شيرازي",  "تبريزي",   "اصفهاني", "كرماني", "گيلاني", "خراساني", "همداني", "لرستاني", "اراكي",  "كاشاني"};
constexpr std::array kCentres = {"0100001", "0100002", "0100003", "0100004", "0100005", "0200001", "0200002",
                                 "0200003", "0200004", "0200005", "0300001", "0300002", "0300003", "0300004"};
// Every table whose rows are of a month; the demonstration script writes month 7.
constexpr std::array kMonthTables = {"Paymozd", "paykar",  "Payvam", "ezafehkar", "Nobatkari", "Gheybat",
                                     "Padash",  "Mamorit", "Payomr", "Paybon",    "Karaneh",   "paybimeh"};

// The same numbers on every machine and compiler.
class Dice {
public:
    // 0 … sides-1
    int roll(int sides) {
        m_state += 0x9E3779B97F4A7C15ULL;
        quint64 mixed = (m_state ^ (m_state >> 30)) * 0xBF58476D1CE4E5B9ULL;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
        return static_cast<int>((mixed ^ (mixed >> 31)) % static_cast<quint64>(sides));
    }
    template <size_t n>
    QString pick(const std::array<const char*, n>& texts) {
        return QString::fromUtf8(texts[static_cast<size_t>(roll(static_cast<int>(n)))]);
    }

private:
    quint64 m_state = 1404;
};

struct EmployeeRows {
    QString person;   // a row of `person`
    QString measure;  // a row of the work table from which the amounts are worked out
};

EmployeeRows employ(int number, Dice& dice) {
    const int grade = 1 + dice.roll(dice.roll(3) == 0 ? 12 : 6);
    const int years = dice.roll(25);
    const int married = dice.roll(10) < 7;
    const int children = married * dice.roll(4);
    const int education = std::min(7, 1 + grade / 2 + dice.roll(2));
    const QString code = QStringLiteral("%1").arg(number, 8, 10, QLatin1Char('0'));

    QStringList values = {data::quoted(code),
                          "'412'",
                          "'0001'",
                          data::quoted(code.right(5)),
                          data::quoted(dice.pick(kCentres)),
                          "''",
                          data::quoted(dice.pick(kFirstNames)),
                          data::quoted(dice.pick(kFamilies))};
    const int departments = 6, fields = 11, offices = 5, ranks = 19, jobs = 12, places = 4, schemes = 2,
              banks = 6;
    for (const int value : {11 - std::min(10, grade), 1 + dice.roll(fields), 1 + dice.roll(offices),
                            1 + dice.roll(departments), dice.roll(ranks), 1 + dice.roll(jobs), grade,
                            1 + dice.roll(places), education, dice.roll(schemes), 1 + dice.roll(banks)})
        values.append(QString::number(value));

    const int wage = 103909680 + grade * 8600000 + years * 1250000;
    return {values.join(u','), QStringLiteral("%1,%2,%3,%4,%5,%6,%7")
                                   .arg(data::quoted(code))
                                   .arg(number)
                                   .arg(wage)
                                   .arg(grade)
                                   .arg(years)
                                   .arg(married)
                                   .arg(children)};
}

void employAll(data::Connection& connection, int count) {
    constexpr int kRowsPerInsert = 500;  // SQL Server takes at most 1000
    connection.execute(
        "create table Demo_Employee(code varchar(8), n int, wage int, grade int, years int, married int, "
        "children int)");
    Dice dice;
    for (int first = 1; first <= count; first += kRowsPerInsert) {
        QStringList people, measures;
        for (int number = first; number < std::min(first + kRowsPerInsert, count + 1); ++number) {
            const EmployeeRows rows = employ(number, dice);
            people.append(u'(' + rows.person + u')');
            measures.append(u'(' + rows.measure + u')');
        }
        connection.execute(
            "insert into person(code, koll, moein, tafsily, tafsily2, isdelete, name, family, depart, "
            "resht_t,"
            " resht_a, vahd, resteh, semat, grade, khdmat, tahsil, code_biemh, code_bank) values " +
            people.join(",\n"));
        connection.execute(
            "insert into Demo_Employee(code, n, wage, grade, years, married, children) values " +
            measures.join(",\n"));
    }
}

// What month 7 defines holds for the other months too.
void copyMonth(data::Connection& connection, const QString& table) {
    connection.execute("select * into Demo_Copy from " + table);
    for (int month = 1; month <= 12; ++month) {
        if (month == 7)
            continue;
        connection.execute(QStringLiteral("update Demo_Copy set codemah='%1'").arg(month, 2));
        connection.execute("insert into " + table + " select * from Demo_Copy");
    }
    connection.execute("drop table Demo_Copy");
}

}  // namespace

void fillDemo(data::Connection& connection, const DemoSize& size) {
    runScript(connection, schemaFolder() + "/demo.sql");
    for (const char* table : kMonthTables)
        copyMonth(connection, QString::fromLatin1(table));
    employAll(connection, size.employees);
    runScript(connection, schemaFolder() + "/demo-amounts.sql");
    connection.execute("drop table Demo_Employee drop table Demo_Month");
}

void createDemoCompany(const QString& file, const DemoSize& size) {
    createCompanyFile(file, [&](data::Connection& connection) { fillDemo(connection, size); });
}

}  // namespace host
