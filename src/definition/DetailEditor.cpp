#include "DetailEditor.h"

#include <QScopeGuard>
#include <functional>

#include "DatabaseHelpers.h"
#include "ModuleVariables.h"
#include "Query.h"
#include "TextHelpers.h"
#include "Untfmsg.h"
#include "Untmoafait.h"
#include "WorkCopy.h"

namespace definition {

std::optional<QList<ItemShare>> parseItemShares(const QString& list) {
    QList<ItemShare> shares;
    QString rest = list.trimmed();
    while (!rest.isEmpty()) {
        const qsizetype underscore = rest.indexOf(u'_');
        const qsizetype star = rest.indexOf(u'*');
        const qsizetype end = rest.indexOf(u')');
        if (underscore < 0 || star < underscore || end < star)
            return std::nullopt;
        bool codeIsNumber = false;
        bool shareIsNumber = false;
        const ItemShare share = {rest.mid(underscore + 1, star - underscore - 1).toLongLong(&codeIsNumber),
                                 rest.mid(star + 1, end - star - 1).toDouble(&shareIsNumber)};
        if (!codeIsNumber || !shareIsNumber)
            return std::nullopt;
        shares.append(share);
        rest = rest.mid(end + 1).trimmed();
    }
    return shares;
}

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
bool runEditor(const QString& itemSource, const QString& list,
               const std::function<void(TFrmMoafiat&)>& prepare,
               const std::function<void(TFrmMoafiat&)>& take) {
    // Keys typed ahead of a window that is just closing begin nothing new.
    if (_FrmMoafiat)
        return false;
    data::HostDatabase& db = *_MyDatabase;
    const QString table = freeTableName(db, *_Global, QStringLiteral("1"));
    _FrmMoafiat = new TFrmMoafiat(table);
    // The window drops the table when it goes, whatever happens before.
    const auto destroy = qScopeGuard([] { delete _FrmMoafiat; });
    prepareTable(db, table, itemSource, list);
    prepare(*_FrmMoafiat);
    if (_FrmMoafiat->showModal() != widgets::mrOk)
        return false;
    take(*_FrmMoafiat);
    return true;
}

}  // namespace

std::optional<QString> editItemShares(const QString& itemSource, const QString& list,
                                      const QString& caption) {
    QString shares;
    const bool confirmed = runEditor(
        itemSource, list, [&](TFrmMoafiat& editor) { editor.showOnlyList(caption); },
        [&](TFrmMoafiat& editor) { shares = editor.itemList(); });
    return confirmed ? std::optional(shares) : std::nullopt;
}

bool editSharesOrAmount(const QString& itemSource, data::Dataset& rows, const QString& field) {
    const auto prepare = [&](TFrmMoafiat& editor) {
        editor.callerRows = &rows;
        editor.callerField = field;
    };
    return runEditor(itemSource, rows.text(field), prepare, [](TFrmMoafiat&) {});
}

}  // namespace definition
