// A T-SQL statement that the engine sees for the first time, against SQLite's own statement of the same
// meaning, written by hand, prepared and run. The tables are empty, so that both runs cost next to nothing;
// the ratio is what our way costs in addition.
#include <QFile>
#include <stdexcept>

#include "Bench.h"
#include "Embedded.h"
#include "Handle.h"
#include "HostCompany.h"

namespace bench {
namespace {

constexpr int kRounds = 2000;

// {N} differs from one time to the next: no plan is kept of such a text.
struct Shape {
    const char* name;
    QString spoken;
    QString byHand;
};

QString move(int columns) {
    QStringList assignments;
    for (int column = 1; column <= columns; ++column)
        assignments.append(QStringLiteral("code_%1=code_%2").arg(column).arg(columns + 1 - column));
    return "Update Payroll Set " + assignments.join(u',') + " where codemah='{N}'";
}

QList<Shape> shapes() {
    const QString move20 = move(20);
    return {
        {"value", "Select Top 1 Payment From Options Where SCode = '{N}'",
         "SELECT Payment FROM Options WHERE SCode = '{N}' LIMIT 1"},
        {"work copy", "Select Code_field, Codetemp From Paymozd where codemah='{N}' order by Code_field",
         "SELECT Code_field, Codetemp FROM Paymozd WHERE codemah = '{N}' ORDER BY Code_field"},
        {"turnover",
         "select count(*) from [Payroll] where code_3>0 and codemah='{N}' and code_0 in (Select code from "
         "person where isnull(isdelete,'')='') ",
         "SELECT count(*) FROM Payroll WHERE code_3 > 0 AND codemah = '{N}' AND code_0 IN (SELECT code FROM "
         "person WHERE ifnull(isdelete, '') = '' COLLATE server)"},
        {"row", "SELECT %%physloc%%,* FROM [paykar] WHERE %%physloc%% IN ({N},2,3,4,5,6,7,8)",
         "SELECT rowid, * FROM paykar WHERE rowid IN ({N},2,3,4,5,6,7,8)"},
        {"post", "UPDATE [paykar] SET [Desk]='name',[Fieldlen]=9,[Add]='' WHERE %%physloc%%={N}",
         "UPDATE paykar SET Desk = 'name', Fieldlen = 9, \"Add\" = '' WHERE rowid = {N}"},
        {"delete", "delete from Paymozd where codemah = '{N}'", "DELETE FROM Paymozd WHERE codemah = '{N}'"},
        {"store", "insert into Paymozd select * from Work where codemah='{N}'",
         "INSERT INTO Paymozd SELECT * FROM Work WHERE codemah = '{N}'"},
        {"move", move20, move20},
        {"joined move",
         "Update Payroll Set code_1 = A.code_2 From Payroll P, Paytraf A Where P.code_0=A.code_0 And "
         "P.codemah = '{N}' And A.codemah = '{N}'",
         "UPDATE Payroll AS P SET code_1 = A.code_2 FROM Paytraf A WHERE P.code_0 = A.code_0 AND P.codemah = "
         "'{N}' AND A.codemah = '{N}'"},
    };
}

QString emptyCompany(const QString& name) {
    return keptFile(name, [](const QString& making) {
        host::createEmptyCompany(making);
        tsql::open(making, tsql::OpenMode::Existing)->execute("select * into Work from Paymozd");
    });
}

// Each level stands in the one before, in turn as what is taken and as what is left.
QString nest(int levels) {
    QString text = QStringLiteral("code_1");
    for (int level = 0; level < levels; ++level)
        text = (level % 2 == 0 ? QStringLiteral("case when code_2=%1 then %1 else %2 end")
                               : QStringLiteral("case when code_2=%1 then %2 else %1 end"))
                   .arg(level)
                   .arg(text);
    return "Select " + text + " From Payroll Where codemah='{N}'";
}

double microseconds(const std::function<void()>& work) {
    return timed(work) * 1000;
}

}  // namespace

void translation() {
    const auto connection = tsql::open(emptyCompany("spoken.company"), tsql::OpenMode::Existing);
    const tsql::Handle handle(emptyCompany("by-hand.company"), false);
    data::Transaction spoken(*connection);
    handle.run("BEGIN IMMEDIATE");
    QList<double> additions;
    int number = 1'000'000;
    for (const Shape& shape : shapes()) {
        const auto text = [&](QString sql) { return sql.replace("{N}", QString::number(++number)); };
        const auto ours = [&] {
            const QString sql = text(shape.spoken);
            return microseconds([&] {
                connection->stream(
                    sql, [](const auto&) {}, [](const auto&) { return true; });
            });
        };
        const auto byHand = [&] {
            const std::string sql = text(shape.byHand).toStdString();
            return microseconds([&] { handle.run(sql); });
        };
        const Comparison comparison = compare(kRounds, ours, byHand);
        additions.append(comparison.ratio - 1);
        detail("translate", QStringLiteral("%1: %2 µs more than %3 µs, %4 of it")
                                .arg(QLatin1String(shape.name))
                                .arg(comparison.measured - comparison.floor, 0, 'f', 1)
                                .arg(comparison.floor, 0, 'f', 1)
                                .arg(additions.last(), 0, 'f', 2));
    }
    handle.run("ROLLBACK");
    double sum = 0;
    for (double addition : additions)
        sum += addition;
    report("translate", sum / static_cast<double>(additions.size()), 0.8);
}

// Ten times the levels, ten times the work.
void translationDepth() {
    const auto connection = tsql::open(emptyCompany("spoken.company"), tsql::OpenMode::Existing);
    int number = 1'000'000;
    const auto nested = [&](int levels) {
        return [&, text = nest(levels)] {
            const QString sql = QString(text).replace("{N}", QString::number(++number));
            return timed([&] { connection->execute(sql); });
        };
    };
    report("translate-depth", compare(kRounds / 10, nested(100), nested(10)), 10);
}

}  // namespace bench
