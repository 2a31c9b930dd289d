// The salary page's confirmation, from the click to the commit, when the code of every item has moved;
// the floor is one statement that rewrites the month's rows in place.
#include <QPushButton>
#include <stdexcept>

#include "Bench.h"
#include "DataGrid.h"
#include "Embedded.h"
#include "Handle.h"
#include "HostCompany.h"
#include "ModuleWindow.h"

namespace bench {
namespace {

constexpr int kItems = 60;
constexpr int kItemsOfDemo = 25;
constexpr const char* kFloor = "UPDATE Payroll SET code_1 = code_1 + 1 WHERE codemah COLLATE BINARY = ' 7'";

// The demonstration company, with sixty items and an amount of each for everybody in every month.
void makeCompany(const QString& file, int employees) {
    host::createDemoCompany(file, {employees});
    const auto connection = tsql::open(file, tsql::OpenMode::Existing);
    QStringList amounts;
    for (int code = kItemsOfDemo + 1; code <= kItems; ++code) {
        connection->execute(
            QStringLiteral("alter table Payroll add code_%1 int not null default 0").arg(code));
        connection->execute(QStringLiteral("insert into Paymozd(Code_field, codemah, Desk, Fieldlen) "
                                           "values (%1, ' 7', 'مزاياي %1', 9)")
                                .arg(code));
        amounts.append(QStringLiteral("code_%1=code_1+%1").arg(code));
    }
    connection->execute("update Payroll set " + amounts.join(u','));
    // In the newest month the grades' amounts follow as well, and nothing is left to be told.
    connection->execute("delete from Paymozd where codemah>' 7'");
}

class SalaryPage {
public:
    explicit SalaryPage(const QString& file) : m_window(file) {
        m_grid = m_window.form().component<widgets::DataGrid>("dbgMozd");
        m_confirm = m_window.form().component<QPushButton>("OkBtn");
        if (!m_grid || !m_confirm || m_grid->dataset()->recordCount() != kItems)
            throw std::runtime_error("the salary page does not show its sixty items");
    }

    // Item 1 becomes item 60, item 2 item 59, …
    void turnCodes() {
        m_window.execute(QStringLiteral("update %1 set Code_field=%2-Code_field")
                             .arg(m_grid->dataset()->tableName())
                             .arg(kItems + 1));
        m_grid->dataset()->refresh();
    }

    void confirm() { m_confirm->click(); }

    // What the month pays for an item.
    double total(int code) {
        return m_window
            .execute(QStringLiteral("select sum(code_%1*1.0) from Payroll where codemah=' 7'").arg(code))
            .rows.at(0)
            .at(0)
            .toDouble();
    }

private:
    ModuleWindow m_window;
    widgets::DataGrid* m_grid = nullptr;
    QPushButton* m_confirm = nullptr;
};

void checkThatAmountsMove(SalaryPage& page) {
    const double first = page.total(1), last = page.total(kItems);
    page.turnCodes();
    page.confirm();
    if (first == last || page.total(1) != last || page.total(kItems) != first)
        throw std::runtime_error("the confirmation did not move the amounts");
}

}  // namespace

void confirmation(int employees) {
    const QString file = keptFile(QStringLiteral("%1-newest.company").arg(employees),
                                  [&](const QString& making) { makeCompany(making, employees); });
    SalaryPage page(file);
    // A second handle with the settings of the first.
    const tsql::Handle byHand(file, false);
    checkThatAmountsMove(page);

    // Both start with the table read and nothing left to be written back from the time before.
    const auto confirmed = [&] {
        page.turnCodes();
        byHand.run("PRAGMA wal_checkpoint(TRUNCATE)");
        page.total(1);
        return timed([&] { page.confirm(); });
    };
    const auto rewritten = [&] {
        byHand.run("PRAGMA wal_checkpoint(TRUNCATE)");
        byHand.run("SELECT sum(code_1) FROM Payroll");
        return timed([&] {
            byHand.run("BEGIN IMMEDIATE");
            byHand.run(kFloor);
            byHand.run("COMMIT");
        });
    };
    report(QStringLiteral("confirm-%1").arg(employees),
           compare(employees > 10'000 ? 5 : 15, confirmed, rewritten), 1.1);
}

}  // namespace bench
