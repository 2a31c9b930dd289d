#include "RowUsage.h"

#include "DefinitionPage.h"
#include "HolderFacts.h"
#include "ListDialog.h"
#include "Query.h"
#include "ShareList.h"
#include "UserRights.h"

namespace definition {
namespace {

using forms::ListColumn;

const QString kTitle = QStringLiteral("موارد استفاده");

QList<ListColumn> titles() {
    return {{QStringLiteral("نوع"), 190},
            {QStringLiteral("كد"), 80},
            {QStringLiteral("نام"), 220},
            {QStringLiteral("ماه"), 50, ListColumn::Kind::Number},
            {QStringLiteral("مقدار"), 120, ListColumn::Kind::Number}};
}

class Usage {
public:
    explicit Usage(DefinitionPage& page)
        : m_page(page), m_code(page.referredCode()), m_place(page.copiedRow().place) {
        if (page.definition().kind == PageKind::Direct)
            m_place = page.rows().storedPlace();
    }

    QList<QStringList> find() {
        Load_User_Rights(m_page.db(), m_page.global());
        data::Questions questions;
        QStringList tables;
        for (const Reference& reference : references())
            tables.append(tableOf(reference));
        if (m_code.isValid()) {
            askColumns(questions, m_columns, tables);
            questions.send(*m_page.db().Connection);
        }
        for (const Reference& reference : references())
            ask(questions, reference);
        questions.send(*m_page.db().Connection);
        return m_rows;
    }

private:
    const QList<Reference>& references() const { return referencesTo(m_page.referredTable()); }

    bool isOwn(const Reference& reference) const {
        return sameTable(reference.table, m_page.definition().table);
    }

    // The page's own lists are those that the operator sees.
    QString tableOf(const Reference& reference) const {
        if (reference.as == HeldAs::LayoutTable)
            return reference.table + QString::number(m_place);
        return isOwn(reference) ? m_page.rows().tableName() : reference.table;
    }

    // The column by which the row is held, and the condition that it does.
    std::pair<QString, QString> held(const Reference& reference) const {
        const QString number = m_code.toString();
        switch (reference.as) {
            case HeldAs::Code:
            case HeldAs::ColumnName:
                return {reference.column, "H." + reference.column + u'=' + heldLiteral(reference, m_code)};
            case HeldAs::Prefix:
                return {reference.column, "Left(H." + reference.column + u',' +
                                              QString::number(number.size()) + ")=" + data::quoted(number)};
            case HeldAs::ShareList:
                return {reference.column, "H." + reference.column + "<>''"};
            case HeldAs::Amounts:
                return {reference.column + number, "H." + reference.column + number + "<>0"};
            case HeldAs::Place: {
                const QString column = reference.column + QString::number(m_place);
                // A column of marks holds texts, one of amounts numbers.
                return {column, "H." + column + (reference.ofMonth ? "<>''" : "<>0")};
            }
            case HeldAs::LayoutTable:
                break;
        }
        return {};
    }

    void ask(data::Questions& questions, const Reference& reference) {
        const QString table = tableOf(reference);
        const bool isNew = !m_code.isValid() || (reference.as == HeldAs::Place && m_place == 0);
        if (isNew && !isOwn(reference))
            return;
        if (reference.as == HeldAs::LayoutTable) {
            if (m_columns.contains(table.toLower()))
                questions.ask("Select Count(*) From " + table,
                              [this, &reference, table](const data::ResultSet& found) {
                                  add(reference, table, {}, data::valueText(found.rows[0][0]));
                              });
            return;
        }
        const auto [column, condition] = held(reference);
        if (!isOwn(reference) && !m_columns.value(table.toLower()).contains(column.toLower()))
            return;
        const QString from = " From " + table + " H";
        const QString where =
            " Where " + condition +
            (reference.ofMonth && !isOwn(reference) ? " And H.Codemah=" + data::quoted(m_page.month())
                                                    : QString());
        const bool isOthers = reference.person.isEmpty() && !m_page.window().MayShow(reference.table);
        if (isOthers || reference.holderCode.isEmpty())
            return askCount(questions, reference, from + where);
        if (reference.person.isEmpty())
            return askRows(questions, reference, column, from + where);
        const bool hasAmount = reference.as == HeldAs::Amounts || !reference.amount.isEmpty();
        const QString amount = !reference.amount.isEmpty() ? reference.amount : "H." + column;
        const QString person = "H." + reference.person;
        const bool isPerson = reference.table == QLatin1String("person");
        const QString names =
            isPerson ? QStringLiteral("H.name,H.family") : QStringLiteral("P.name,P.family");
        const QString join = isPerson ? QString() : " Left Join person P On P.code=" + person;
        questions.ask(
            "Select " + person + u',' + names + u',' + (hasAmount ? amount : QStringLiteral("NULL")) + from +
                join + where + " Order By " + person,
            [this, &reference](const data::ResultSet& found) {
                const bool reports = m_page.global().Report_Right == QLatin1String("REPORT");
                for (const QVariantList& row : found.rows)
                    add(reference, data::valueText(row[0]).trimmed(),
                        (data::valueText(row[1]).trimmed() + u' ' + data::valueText(row[2]).trimmed())
                            .trimmed(),
                        reports ? data::valueText(row[3]) : QString());
            });
    }

    void askCount(data::Questions& questions, const Reference& reference, const QString& those) {
        questions.ask("Select Count(*)" + those, [this, &reference](const data::ResultSet& found) {
            if (const QString number = data::valueText(found.rows[0][0]); number != QLatin1String("0"))
                add(reference, {}, {}, number);
        });
    }

    void askRows(data::Questions& questions, const Reference& reference, const QString& column,
                 const QString& those) {
        questions.ask("Select H." + reference.holderCode + ",H." + reference.holderName + ",H." + column +
                          those + " Order By H." + reference.holderCode,
                      [this, &reference](const data::ResultSet& found) {
                          for (const QVariantList& row : found.rows)
                              if (const std::optional<QString> value = valueIn(reference, row[2]))
                                  add(reference, data::valueText(row[0]).trimmed(),
                                      data::valueText(row[1]).trimmed(), *value);
                      });
    }

    // What the holder has of the row; none for a list that does not name it.
    std::optional<QString> valueIn(const Reference& reference, const QVariant& value) const {
        if (reference.as == HeldAs::Place)
            return reference.ofMonth ? forms::kMarkText : data::valueText(value);
        if (reference.as != HeldAs::ShareList)
            return QString();
        const qint64 code = reference.table == m_page.definition().table
                                ? m_page.rows().value(m_page.definition().fields.code).toLongLong()
                                : m_code.toLongLong();
        for (const ItemShare& share : parseItemShares(value.toString()).value_or(QList<ItemShare>()))
            if (share.code == code)
                return share.text;
        return std::nullopt;
    }

    void add(const Reference& reference, const QString& code, const QString& name, const QString& amount) {
        m_rows.append(
            {reference.title, code, name, reference.ofMonth ? m_page.month().trimmed() : QString(), amount});
    }

    DefinitionPage& m_page;
    QVariant m_code;
    int m_place;
    TableColumns m_columns;
    QList<QStringList> m_rows;
};

}  // namespace

bool hasUsage(const DefinitionPage& page) {
    return !referencesTo(page.referredTable()).isEmpty();
}

void showUsage(DefinitionPage& page) {
    if (page.rows().isEmpty())
        return;
    const QString name = page.rows().text(page.definition().fields.name).trimmed();
    forms::ListDialog window(QStringLiteral("TUsageForm"), kTitle + QStringLiteral(": ") + name,
                             QStringLiteral("dbgUsage"), titles(), {720, 420});
    window.setRows(Usage(page).find());
    window.addButtons();
    window.showModal();
}

void adviseUsage(DefinitionPage& page) {
    page.advise(QStringLiteral("Ctrl+U: ") + kTitle, [&page] { showUsage(page); });
}

}  // namespace definition
