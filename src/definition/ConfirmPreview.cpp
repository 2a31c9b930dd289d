#include "ConfirmPreview.h"

#include "DefinitionPage.h"
#include "GridModel.h"
#include "ListDialog.h"
#include "Query.h"
#include "ShareList.h"
#include "Untfmsg.h"

namespace definition {
namespace {

using forms::ListColumn;

const QString kNone = QStringLiteral("-");
const QString kSumFormat = QStringLiteral("###,###,###,###");

QList<ListColumn> titles() {
    return {{QStringLiteral("وضعيت"), 60},
            {QStringLiteral("كد قبلي"), 60, ListColumn::Kind::Number},
            {QStringLiteral("كد جديد"), 60, ListColumn::Kind::Number},
            {QStringLiteral("شرح"), 160},
            {QStringLiteral("تغييرات"), 220},
            {QStringLiteral("كاركنان"), 70, ListColumn::Kind::Number},
            {QStringLiteral("جمع مبلغ"), 110, ListColumn::Kind::Number}};
}

QString statusOf(const RowChange& row) {
    if (row.before == 0)
        return QStringLiteral("جديد");
    if (row.now == 0)
        return QStringLiteral("حذف");
    return row.now != row.before ? QStringLiteral("جابجا") : QStringLiteral("تغيير");
}

QString codeText(qint64 code) {
    return code != 0 ? QString::number(code) : QString();
}

// The stored row that each item was: at its place, where the stored rows are still those that were copied,
// else the next with its code; -1 for none.
QList<int> storedRows(const ConfirmPlan& plan, const QList<qint64>& codes) {
    QList<int> rows;
    QSet<int> taken;
    for (const ItemCode& item : plan.items()) {
        int row = codes.value(item.placeBefore - 1) == item.before && !taken.contains(item.placeBefore - 1)
                      ? item.placeBefore - 1
                      : -1;
        for (int i = 0; row < 0 && item.before != 0 && i < codes.size(); ++i)
            if (codes[i] == item.before && !taken.contains(i))
                row = i;
        taken.insert(row);
        rows.append(row);
    }
    return rows;
}

// --- what an employee has of a row --------------------------------------------------------------------

struct Amounts {
    qint64 employees = 0;
    std::optional<double> sum;
};

class AmountsOfRows {
public:
    AmountsOfRows(const DefinitionPage& page, const ConfirmPlan& plan)
        : m_table(page.definition().table), m_month(page.month()), m_plan(plan) {}

    void ask(data::Questions& questions, const QSet<qint64>& codes) {
        for (const Reference& reference : referencesTo(m_table)) {
            if (reference.as == HeldAs::Amounts)
                return askColumns(questions, reference, codes);
            if (reference.as == HeldAs::Code && !reference.person.isEmpty())
                return askRecords(questions, reference, codes);
        }
    }
    Amounts of(qint64 code) const { return m_found.value(code); }

private:
    QString inMonth(const Reference& reference) const {
        return reference.ofMonth ? "Codemah=" + data::quoted(m_month) : QStringLiteral("1=1");
    }

    void askColumns(data::Questions& questions, const Reference& reference, const QSet<qint64>& codes) {
        const QSet<QString> known = m_plan.columnsOf(reference.table);
        QStringList sums;
        QList<qint64> asked;
        for (const qint64 code : codes) {
            const QString column = reference.column + QString::number(code);
            if (!known.contains(column.toLower()))
                continue;
            asked.append(code);
            sums.append("Sum(Case When " + column + "<>0 Then 1 Else 0 End),Sum(Cast(" + column +
                        " As float))");
        }
        if (!sums.isEmpty())
            questions.ask(
                "Select " + sums.join(u',') + " From " + reference.table + " Where " + inMonth(reference),
                [this, asked](const data::ResultSet& found) {
                    const QVariantList row = found.rows.value(0);
                    for (int i = 0; i < asked.size(); ++i)
                        m_found[asked[i]] = {row.value(2 * i).toLongLong(), row.value(2 * i + 1).toDouble()};
                });
    }

    void askRecords(data::Questions& questions, const Reference& reference, const QSet<qint64>& codes) {
        QStringList held;
        for (const qint64 code : codes)
            held.append(heldLiteral(reference, code));
        const QString any = reference.amount.isEmpty() ? QString() : " And " + reference.amount + "<>0";
        const QString sum =
            reference.amount.isEmpty() ? QStringLiteral("NULL") : "Sum(" + reference.amount + ')';
        questions.ask("Select " + reference.column + ",Count(Distinct " + reference.person + ")," + sum +
                          " From " + reference.table + " Where " + inMonth(reference) + any + " And " +
                          reference.column + " In (" + held.join(u',') + ") Group By " + reference.column,
                      [this, &reference](const data::ResultSet& found) {
                          for (const QVariantList& row : found.rows)
                              m_found[row[0].toLongLong() + (reference.lessOne ? 1 : 0)] = {
                                  row[1].toLongLong(),
                                  row[2].isValid() ? std::optional(row[2].toDouble()) : std::nullopt};
                      });
    }

    const QString m_table, m_month;
    const ConfirmPlan& m_plan;
    QHash<qint64, Amounts> m_found;
};

QString filled(const QString& shown) {
    return shown.trimmed().isEmpty() ? kNone : shown.trimmed();
}

}  // namespace

QStringList valueChanges(const DefinitionPage& page, const std::function<QVariant(const QString&)>& before,
                         const std::function<QVariant(const QString&)>& now,
                         const std::function<qint64(qint64)>& codeNow) {
    QStringList changes;
    for (int column = 0; column < page.columns().size(); ++column) {
        const forms::PageColumn& shown = page.columns()[column];
        const QString field = shown.grid.field;
        if (field.compare(page.definition().fields.code, Qt::CaseInsensitive) == 0)
            continue;
        const auto shownText = [&](const QVariant& value) { return filled(page.shownText(column, value)); };
        QString old = shownText(before(field)), current = shownText(now(field));
        if (old == current && !shown.detailList.isEmpty()) {
            const QString list = data::valueText(before(shown.detailList));
            old = filled(list);
            current = filled(data::valueText(now(shown.detailList)));
            if (filled(renumberShares(list, codeNow)) == current)
                continue;
        }
        if (old != current)
            changes.append(shown.grid.title.simplified() + QStringLiteral(": ") + old +
                           QStringLiteral(" ← ") + current);
    }
    return changes;
}

QList<RowChange> changesOf(DefinitionPage& page, const ConfirmPlan& plan, const data::ResultSet& stored) {
    const int code = stored.indexOf(page.definition().fields.code);
    const int name = stored.indexOf(page.definition().fields.name);
    QList<qint64> codes;
    for (const QVariantList& row : stored.rows)
        codes.append(row[code].toLongLong());
    const QList<int> places = storedRows(plan, codes);
    const auto codeNow = [&plan](qint64 before) { return plan.codeNow(before); };
    const int nameNow = page.rows().columnIndex(page.definition().fields.name);
    QList<RowChange> changes, added;
    for (int row = 0; row < places.size(); ++row) {
        const qint64 now = plan.items()[row].now;
        const QString named = data::valueText(page.rows().valueAt(row, nameNow)).trimmed();
        if (places[row] < 0) {
            added.append({0, now, named, {}, false});
            continue;
        }
        const QStringList values = valueChanges(
            page,
            [&, from = places[row]](const QString& field) {
                return stored.rows[from].value(stored.indexOf(field));
            },
            [&, row](const QString& field) {
                return page.rows().valueAt(row, page.rows().columnIndex(field));
            },
            codeNow);
        if (!values.isEmpty() || now != codes[places[row]])
            changes.append(
                {codes[places[row]], now, named, values.join(QStringLiteral("؛ ")), !values.isEmpty()});
    }
    for (int row = 0; row < codes.size(); ++row)
        if (!places.contains(row))
            changes.append(
                {codes[row], 0, data::valueText(stored.rows[row].value(name)).trimmed(), {}, false});
    std::stable_sort(changes.begin(), changes.end(),
                     [](const RowChange& one, const RowChange& other) { return one.before < other.before; });
    return changes + added;
}

namespace {

// What the plan would do, as a list in a window; null where it would do nothing.
std::unique_ptr<forms::ListDialog> previewOf(DefinitionPage& page, const ConfirmPlan& plan) {
    data::Connection& connection = *page.db().Connection;
    data::Questions questions;
    data::ResultSet stored;
    AmountsOfRows amounts(page, plan);
    questions.ask("Select * From " + page.definition().table + " Where Codemah=" +
                      data::quoted(page.month()) + " Order By " + page.definition().fields.code,
                  [&](const data::ResultSet& found) { stored = found; });
    questions.send(connection);
    const QList<RowChange> changes = changesOf(page, plan, stored);
    if (changes.isEmpty())
        return {};
    QSet<qint64> codes;
    for (const RowChange& row : changes)
        codes.insert(row.before != 0 ? row.before : row.now);
    amounts.ask(questions, codes);
    questions.send(connection);
    QList<QStringList> rows;
    for (const RowChange& row : changes) {
        const Amounts has = amounts.of(row.before != 0 ? row.before : row.now);
        rows.append({statusOf(row), codeText(row.before), codeText(row.now), row.name, row.changes,
                     QString::number(has.employees),
                     has.sum ? widgets::formatNumber(kSumFormat, *has.sum) : QString()});
    }
    auto window = std::make_unique<forms::ListDialog>(
        QStringLiteral("TConfirmPreviewForm"), QStringLiteral("پيش نمايش تاييد"),
        QStringLiteral("dbgPreview"), titles(), QSize(790, 480));
    window->setRows(rows);
    QStringList notes = plan.followers() << plan.notice(), warnings;
    for (const PlanQuestion& question : plan.questions())
        warnings.append(question.text);
    notes.removeAll(QString());
    window->addNotes(notes, warnings);
    return window;
}

}  // namespace

bool askBeforeConfirm(DefinitionPage& page, const ConfirmPlan& plan, const PlanQuestion& question) {
    const auto ask = [&] { return Show_Msg(question.text, QString(), QStringLiteral("3QC")); };
    const auto difference = question.isOfOthers ? previewOf(page, plan) : nullptr;
    return (difference ? difference->showBehind(ask) : ask()) == widgets::mrYes;
}

void previewConfirm(DefinitionPage& page) {
    page.rows().checkBrowseMode();
    const auto window = previewOf(page, page.planConfirm(ConfirmPlan::Counts::All));
    if (!window) {
        Show_Msg(QStringLiteral("تغييري براي تاييد نيست"), QString(), QStringLiteral("1IR"));
        return;
    }
    window->addButtons(QStringLiteral("تاييد"), [&window] { window->setModalResult(widgets::mrOk); });
    if (window->showModal() == widgets::mrOk)
        page.ConfirmPage();
}

}  // namespace definition
