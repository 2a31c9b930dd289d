// What refers to rows follows any renumbering as if each record were put right by hand: lists by code,
// marks and grades by place.
#include "ConfirmPlan.h"

#include <random>

#include "CompanyFixture.h"
#include "DatabaseHelpers.h"

namespace {

constexpr int kCodes = 9, kRows = 6;

class ConfirmPlan : public CompanyFixture {
protected:
    // And says whom it has announced.
    QStringList carryOut(const definition::Confirmation& confirmation) {
        const definition::ConfirmPlan plan(objects->connection(), confirmation,
                                           definition::ConfirmPlan::Counts::All);
        for (const QStringList& statements : {plan.newColumns(), plan.statements()})
            Exec_Sql(db(), statements.join(u'\n'));
        return plan.followers();
    }
    QStringList texts(const QString& sql) {
        QStringList lines;
        for (const QVariantList& row : run(sql).rows) {
            QStringList fields;
            for (const QVariant& value : row)
                fields.append(value.isValid() ? value.toString() : QStringLiteral("NULL"));
            lines.append(fields.join(u'|'));
        }
        return lines;
    }
};

QString entry(qint64 code, qint64 share) {
    return QStringLiteral("(code_%1*%2.50)").arg(code).arg(share);
}

TEST_F(ConfirmPlan, EqualsPuttingEachRecordRight) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        const data::Transaction undone(objects->connection());
        std::mt19937 random(seed);
        const auto chance = [&](unsigned of) { return random() % of == 0; };
        // The codes as they are, some of them twice, and the rows that stay, shuffled, between new ones.
        QList<qint64> before;
        for (int code = 1; code <= kCodes; ++code)
            for (int twins = chance(3) ? 0 : chance(6) ? 2 : 1; twins > 0; --twins)
                before.append(code);
        QList<definition::ItemCode> items;
        for (int place = 1; place <= before.size(); ++place) {
            if (chance(4))
                items.append({0, 0, 0});
            if (!chance(4))
                items.append({0, before[place - 1], place});
        }
        if (chance(2))
            std::shuffle(items.begin(), items.end(), random);
        const bool gaps = chance(3);
        for (int i = 0; i < items.size(); ++i)
            items[i].now = gaps ? 2 * i + 2 : i + 1;

        const auto now = [&](qint64 code) -> qint64 {
            for (const auto& item : items)
                if (item.before == code)
                    return item.now;
            const bool taken =
                std::any_of(items.begin(), items.end(), [&](const auto& item) { return item.now == code; });
            return taken || before.contains(code) ? 0 : code;
        };
        const auto source = [&](int place) {
            return place <= items.size() ? items[place - 1].placeBefore : place <= before.size() ? 0 : place;
        };

        run("insert into Paymozd(Code_field, Codemah, Desk) values (1, ' 7', 'x')");
        QStringList columns, lists, debts, grades;
        for (int place = 1; place <= 2 * kCodes; ++place)
            columns.append(QStringLiteral("code_%1").arg(place));
        for (int row = 1; row <= kRows; ++row) {
            QStringList list, moved, amounts, expected;
            for (int code = 1; code <= kCodes + 4; ++code) {
                if (chance(2))
                    continue;
                list.append(entry(code, code));
                if (now(code) != 0)
                    moved.append(entry(now(code), code));
            }
            for (int place = 1; place <= 2 * kCodes; ++place)
                amounts.append(QString::number(100 * row + place));
            for (int place = 1; place <= 2 * kCodes; ++place)
                expected.append(source(place) > 0 ? amounts[source(place) - 1] : QStringLiteral("NULL"));
            run(QStringLiteral(
                    "insert into paykar(Code_field, codemah, Desk, Perc_mal) values "
                    "(%1, ' 6', 'x', '%2'), (%1, ' 7', 'x', '%2') "
                    "insert into Padash(Code_field, codemah, bedbefor, Desbefor) values "
                    "(%1, ' 7', 'code_%1', 'd') insert into grohpaye(Code_field, %3) values (%1, %4)")
                    .arg(QString::number(row), list.join(u'+'), columns.join(u','), amounts.join(u',')));
            lists.append(list.join(u'+'));
            lists.append(moved.join(u'+'));
            debts.append(now(row) ? QStringLiteral("code_%1|d").arg(now(row)) : QStringLiteral("NULL|NULL"));
            grades.append(expected.join(u'|'));
        }
        const QString rows[] = {"select Perc_mal from paykar order by Code_field, codemah",
                                "select bedbefor, Desbefor from Padash order by Code_field",
                                "select " + columns.join(u',') + " from grohpaye order by Code_field"};
        const QStringList then[] = {texts(rows[0]), texts(rows[1]), texts(rows[2])};
        QStringList announced;
        for (const char* table : {"Paymozd", "paykar"})
            announced += carryOut({table, " 7", [&](data::Questions&, definition::ConfirmedRows& rows) {
                                       rows = {items, before};
                                   }});
        const QStringList expected[] = {lists, debts, grades};
        const char* const titles[] = {"معافيت مالياتي مزاياي غير مستمر", "بدهكاري قبلي پاداش",
                                      "مبالغ گروه(پايه)"};
        for (int held = 0; held < 3; ++held) {
            const QStringList now = texts(rows[held]);
            EXPECT_EQ(now, expected[held]) << "seed " << seed;
            int changed = 0;
            for (int row = 0; row < now.size(); ++row)
                changed += now[row] != then[held][row] ? 1 : 0;
            const QString line = QStringLiteral("%1: %2").arg(titles[held]).arg(changed);
            EXPECT_EQ(changed > 0, announced.contains(line)) << "seed " << seed << ": " << qPrintable(line);
        }
    }
}

}  // namespace
