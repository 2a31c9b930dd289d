// Statements to the embedded engine.
#include <memory>

#include "Embedded.h"
#include "Errors.h"
#include "FuzzTargets.h"

namespace fuzz {
namespace {

constexpr int kTablesForNew = 400;

std::unique_ptr<data::Connection> smallCompany() {
    auto company = tsql::open(QStringLiteral(":memory:"), tsql::OpenMode::Create);
    company->execute(QStringLiteral(
        "create table t(id int identity primary key, code int, name varchar(20), amount float, mark "
        "varchar(1), day "
        "datetime, flag bit)\n"
        "create table u(code int, share float, text varchar(200))\n"
        "insert into t(code, name, amount, mark, day, flag) values (1, 'حقوق', 9, 'ض', '2026-03-21', 1), "
        "(2, 'b ', 1234567.5, '', null, 0), (3, null, null, null, '1999-12-31 23:59:59', null), "
        "(null, 'B', -0.5, 'x', null, 1)\n"
        "insert into u values (1, 50, '(code_1*50)'), (2, null, ''), (null, 0, null), (1, 1e300, 'B')"));
    return company;
}

// Predicates over t, as bytes choose them.
class Predicates {
public:
    explicit Predicates(Choices& choices) : m_choices(choices) {}

    QString predicate(int depth = 0) {
        switch (m_choices.below(depth > 3 ? 5 : 9)) {
            case 0:
                return value(depth) + compare() + value(depth);
            case 1:
                return value(depth) + m_choices.oneOf({" is null", " is not null"});
            case 2:
                return text(depth) + m_choices.oneOf({" like ", " not like "}) + pattern();
            case 3:
                return value(depth) + " between " + value(depth) + " and " + value(depth);
            case 4:
                return value(depth) + m_choices.oneOf({" in (", " not in ("}) + value(depth) + ", " +
                       value(depth) + ')';
            case 5:
                return "not (" + predicate(depth + 1) + ')';
            case 6:
                return '(' + predicate(depth + 1) + ") and (" + predicate(depth + 1) + ')';
            case 7:
                return '(' + predicate(depth + 1) + ") or (" + predicate(depth + 1) + ')';
            default:
                return m_choices.oneOf({"exists (select * from u where u.code=t.code and ",
                                        "t.code in (select code from u where ",
                                        "t.amount > (select max(share) from u where "}) +
                       predicate(depth + 1) + ')';
        }
    }
    QString value(int depth) {
        switch (m_choices.below(depth > 3 ? 3 : 6)) {
            case 0:
                return column();
            case 1:
                return number();
            case 2:
                return literal();
            case 3:
                return '(' + value(depth + 1) + m_choices.oneOf({"+", "-", "*", "/", "%"}) +
                       value(depth + 1) + ')';
            case 4:
                return m_choices.oneOf({"len(", "abs(", "upper(", "rtrim(", "isnull(code, "}) +
                       value(depth + 1) + ')';
            default:
                return "case when " + predicate(depth + 1) + " then " + value(depth + 1) + " else " +
                       value(depth + 1) + " end";
        }
    }
    QString column() {
        return m_choices.oneOf({"t.code", "t.name", "t.amount", "t.mark", "t.day", "t.flag", "t.id"});
    }

private:
    QString number() {
        return m_choices.oneOf({"0", "1", "-1", "2", "3.5", "1e2", "2147483647", "1234567.5", "null"});
    }
    QString literal() {
        return m_choices.oneOf({"'b'", "'B '", "''", "'ض'", "'1'", "'حقوق'", "'2026-03-21'", "null"});
    }
    QString text(int depth) {
        return depth > 3 || m_choices.below(2) == 0 ? QStringLiteral("t.name") : value(depth + 1);
    }
    QString pattern() {
        return m_choices.oneOf({"'%'", "'b%'", "'_'", "'[a-c]%'", "'[^b]'", "'%[%]%'", "''", "t.mark"});
    }
    QString compare() { return m_choices.oneOf({"=", "<>", "<", ">", "<=", ">="}); }

    Choices& m_choices;
};

QString change(Choices& choices) {
    Predicates some(choices);
    switch (choices.below(5)) {
        case 0:
            return "update t set code=" + some.value(3) + " where " + some.predicate(2);
        case 1:
            return "insert into t(code, amount, name) values (" +
                   some.value(4).replace("t.", "1+0*len('')+") + ", 1, 'n')";
        case 2:
            return "delete from t where " + some.predicate(2);
        case 3:
            return "update t set amount=code, name=mark where " + some.predicate(2);
        default:
            return "select code, amount into #w from t where " + some.predicate(2) + " drop table #w";
    }
}

qint64 count(data::Connection& company, const QString& predicate) {
    const QString where = predicate.isEmpty() ? QString() : " where " + predicate;
    return company.execute("select count(*) from t" + where).rows.at(0).at(0).toLongLong();
}

}  // namespace

void statement(const QByteArray& input) {
    static std::unique_ptr<data::Connection> company;
    static int runs = 0;
    if (runs++ % kTablesForNew == 0)
        company = smallCompany();
    company->begin();
    answered([&] { company->execute(QString::fromUtf8(input)); });
    answered([] { company->rollback(); });
    if (runs % 16 == 0)
        answered(
            [] { require(company->execute(QStringLiteral("select 1")).rows.size() == 1, "it answers"); });
}

// Whatever was changed before, the rows where a predicate holds, those where it does not, and those where it
// is neither, are all rows.
void sequence(const QByteArray& input) {
    static const std::unique_ptr<data::Connection> company = smallCompany();
    Choices choices(input);
    company->begin();
    for (int step = choices.below(4); step > 0; --step)
        answered([&] { company->execute(change(choices)); });
    answered([&] {
        const QString p = Predicates(choices).predicate();
        const qint64 holds = count(*company, p), not_ = count(*company, "not (" + p + ')'),
                     neither = count(*company,
                                     "case when " + p + " then 1 when not (" + p + ") then 2 else 3 end=3");
        if (holds + not_ + neither != count(*company, {}))
            throw std::logic_error("not all rows: " + p.toStdString());
    });
    answered([&] { company->rollback(); });
}

}  // namespace fuzz
