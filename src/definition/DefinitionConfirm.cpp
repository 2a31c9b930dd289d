// A work copy takes the place of the month's stored rows as a whole, and what refers to these follows.
#include <QGuiApplication>
#include <QPushButton>

#include "ConfirmPreview.h"
#include "DatabaseHelpers.h"
#include "DefinitionPage.h"
#include "Untfmsg.h"

namespace definition {

void DefinitionPage::ConfirmPage() {
    // Disabled with the focus, the button would hand it to whatever stands behind it.
    m_grid->setFocus();
    m_confirm->setEnabled(false);
    const auto enableAgain = qScopeGuard([confirm = QPointer(m_confirm)] {
        if (confirm)
            confirm->setEnabled(true);
    });
    if (!m_rows.active())
        return;
    m_rows.checkBrowseMode();
    if (m_definition.kind == PageKind::Direct)
        return;
    std::optional<ConfirmPlan> plan;
    // What is agreed to is what is done: another question is asked again.
    QList<PlanQuestion> agreed;
    while (const std::optional<PlanQuestion> open = (plan = storeOrTryAgain(agreed))->open(agreed)) {
        if (!askBeforeConfirm(*this, *plan, *open))
            return;
        agreed.append(*open);
    }
    if (!plan->notice().isEmpty())
        Show_Msg(plan->notice(), QString(), QStringLiteral("1IR"));
}

ConfirmPlan DefinitionPage::planConfirm(ConfirmPlan::Counts counts) {
    QList<OpenCopy> copies;
    for (const DefinitionPage* page : m_window.OpenPages())
        if (page != this && page->m_copy.exists() && page->m_rows.active())
            copies.append({page->m_definition.table, page->m_copy.name()});
    const auto askRows = [this](data::Questions& questions, ConfirmedRows& rows) {
        m_copy.askRows(questions, month(), rows);
    };
    return {*db().Connection,
            {m_definition.table, month(), askRows, copies, m_definition.upgradesAfterConfirm},
            counts};
}

// A server that has chosen this transaction to give way to another one has stored nothing of it, and would
// take it now.
ConfirmPlan DefinitionPage::storeOrTryAgain(const QList<PlanQuestion>& agreed) {
    constexpr int kDeadlock = 1205;
    try {
        return storeWorkCopy(agreed);
    } catch (const data::ServerError& error) {
        if (error.number() != kDeadlock)
            throw;
    }
    return storeWorkCopy(agreed);
}

ConfirmPlan DefinitionPage::storeWorkCopy(const QList<PlanQuestion>& agreed) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto pointAgain = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    std::optional<ConfirmPlan> plan;
    QList<QPointer<DefinitionPage>> holding;
    bool asks = false;
    try {
        // Read while it can still be undone: whoever is told of a failure has nothing stored.
        m_rows.transact(
            [&] {
                plan.emplace(planConfirm());
                asks = plan->open(agreed).has_value();
                if (asks)
                    throw data::SilentAbort();
                for (DefinitionPage* page : m_window.OpenPages())
                    if (page != this && plan->touches(page->m_rows.tableName()))
                        holding.append(page);
                // What is being typed there is part of a row in edit from here on.
                for (DefinitionPage* page : holding)
                    page->m_grid->commitCell();
                carryOut(*plan);
            },
            data::Dataset::After::SameRow);
    } catch (...) {
        if (asks)
            return *std::move(plan);
        if (!db().Connection->lineLost())
            m_rows.refresh();
        else if (plan)
            m_unsettled = [this, plan = *plan, holding] { followStored(plan, holding); };
        throw;
    }
    followStored(*plan, holding);
    m_history.begin(*m_grid);
    return *std::move(plan);
}

void DefinitionPage::followStored(const ConfirmPlan& plan, const QList<QPointer<DefinitionPage>>& holding) {
    m_copy.stored(plan.codesNow(), m_rows);
    for (DefinitionPage* page : m_window.OpenPages())
        if (page != this)
            page->m_copy.renew([&](const QList<data::ColumnInfo>& columns, QVariantList& row) {
                plan.followInRow(page->m_definition.table, columns, row);
            });
    for (DefinitionPage* page : holding)
        if (page) {
            const auto follow = [&](QVariantList& row) {
                plan.followInRow(page->m_rows.tableName(), page->m_rows.columns(), row);
            };
            page->m_rows.renew(follow);
            page->m_history.renew(follow);
        }
}

QString DefinitionPage::settleConfirm() {
    if (!m_unsettled)
        return {};
    const bool stored = m_copy.isStored(db(), month(), m_rows);
    const auto follow = std::exchange(m_unsettled, {});
    if (!stored)
        return QStringLiteral("تاييد پيش از قطع ارتباط ثبت نشده بود. دوباره تاييد كنيد.");
    follow();
    if (!m_definition.keepsCodes)
        m_rows.renew([this](QVariantList& row) {
            row[m_rows.columnIndex(QStringLiteral("Codetemp"))] =
                row[m_rows.columnIndex(m_definition.fields.code)];
        });
    m_forgetsSteps = true;  // the copy is put back first
    return QStringLiteral("تاييد پيش از قطع ارتباط ثبت شده بود.");
}

void DefinitionPage::carryOut(const ConfirmPlan& plan) {
    Exec_Sql(db(), plan.newColumns().join(u'\n'));
    data::Questions text;
    for (const QString& statement : m_copy.replacement(month()) + plan.statements() + followConfirm(plan))
        text.run(statement);
    qint64 items = 0;
    if (!m_definition.upgradesAfterConfirm.isEmpty())
        text.ask(" Select Count(*) as mRec From Paymozd Where CodeMah=" + data::quoted(month()),
                 [&items](const data::ResultSet& found) { items = found.rows[0][0].toLongLong(); });
    text.send(*db().Connection);
    Exec_Sql(db(), plan.upgrades(items).join(u'\n'));
}

}  // namespace definition
