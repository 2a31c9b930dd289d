#include "DetailEditor.h"

#include <QScopeGuard>
#include <functional>

#include "DatabaseHelpers.h"
#include "Query.h"
#include "ShareList.h"
#include "TextHelpers.h"
#include "Untfmsg.h"
#include "Untmoafait.h"
#include "WorkCopy.h"

namespace definition {

namespace {

bool isFixedAmount(const QString& text) {
    bool number = false;
    text.trimmed().toDouble(&number);
    return number;
}

// The items with the shares of the list in place of their lengths.
void prepareTable(data::HostDatabase& db, const QString& table, const QString& itemSource,
                  const QString& list) {
    Exec_Sql(db, " Select * into " + table + " from " + itemSource + " order by code_field ");
    Exec_Sql(db, " Update " + table + " set fieldlen = 0 ");
    const auto shares = parseItemShares(list);
    // An amount in place of a list stays as long as nothing is confirmed over it.
    if (!shares && !isFixedAmount(list))
        Show_Msg(QStringLiteral("متن «%1» فهرستي از مولفه ها نيست و با تاييد شما جايگزين مي شود.").arg(list),
                 QString(), QStringLiteral("1ER"));
    for (const ItemShare& item : shares.value_or(QList<ItemShare>()))
        Exec_Sql(db, "update " + table + " set fieldlen=" + data::valueText(item.share) +
                         " Where Code_field=" + QString::number(item.code));
}

// Shows the window over a table of the items' shares; true when the operator confirmed. `prepare` sets
// the window up, `take` reads it before it goes.
bool runEditor(const SuiteHost& host, const QString& itemSource, const QString& list,
               const std::function<void(TFrmMoafiat&)>& prepare,
               const std::function<void(TFrmMoafiat&)>& take) {
    // Keys typed ahead of a window that is just closing begin nothing new.
    if (_FrmMoafiat)
        return false;
    const QString table = freeTableName(host, QStringLiteral("1"));
    _FrmMoafiat = new TFrmMoafiat(host, table);
    // The window drops the table when it goes, whatever happens before.
    const auto destroy = qScopeGuard([] { delete _FrmMoafiat; });
    prepareTable(*host.database, table, itemSource, list);
    prepare(*_FrmMoafiat);
    if (_FrmMoafiat->showModal() != widgets::mrOk)
        return false;
    take(*_FrmMoafiat);
    return true;
}

}  // namespace

std::optional<QString> editItemShares(const SuiteHost& host, const QString& itemSource, const QString& list,
                                      const QString& caption) {
    QString shares;
    const bool confirmed = runEditor(
        host, itemSource, list, [&](TFrmMoafiat& editor) { editor.showOnlyList(caption); },
        [&](TFrmMoafiat& editor) { shares = editor.itemList(); });
    return confirmed ? std::optional(shares) : std::nullopt;
}

std::optional<QString> editSharesOrAmount(const SuiteHost& host, const QString& itemSource,
                                          data::Dataset& rows, const QString& field, const QString& mark) {
    const auto prepare = [&](TFrmMoafiat& editor) {
        editor.callerRows = &rows;
        editor.callerField = field;
        editor.callerMark = mark;
    };
    QString text;
    const bool confirmed = runEditor(host, itemSource, rows.text(field), prepare,
                                     [&](TFrmMoafiat& editor) { text = editor.confirmed(); });
    return confirmed ? std::optional(text) : std::nullopt;
}

}  // namespace definition
