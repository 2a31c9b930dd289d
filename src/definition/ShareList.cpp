#include "ShareList.h"

#include <QStringList>
#include <cmath>

#include "Errors.h"

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
        const QString share = rest.mid(star + 1, end - star - 1);
        shares.append({rest.mid(underscore + 1, star - underscore - 1).toLongLong(&codeIsNumber),
                       share.toDouble(&shareIsNumber), share});
        if (!codeIsNumber || !shareIsNumber || !std::isfinite(shares.last().share))
            return std::nullopt;
        rest = rest.mid(end + 1).trimmed();
    }
    return shares;
}

QString renumberShares(const QString& list, const std::function<qint64(qint64)>& now) {
    const auto shares = parseItemShares(list);
    if (!shares)
        return list;
    bool changed = false;
    QStringList entries;
    for (const ItemShare& item : *shares) {
        const qint64 code = now(item.code);
        changed = changed || code != item.code;
        if (code != 0)
            entries.append("(code_" + QString::number(code) + u'*' + item.text + u')');
    }
    return changed ? entries.join(u'+') : list;
}

void requireRoom(const QString& list, qsizetype room, const QString& title, const QString& row) {
    if (room > 0 && list.size() > room)
        throw data::Refusal(
            QStringLiteral(
                "با كدهاي تازه، فهرست «%1» در رديف «%2» از %3 نويسه بيشتر مي شود و چيزي ثبت نشد. نخست "
                "درصد چند مولفه اين فهرست را صفر كنيد.")
                .arg(title, row.trimmed(), QString::number(room)));
}

}  // namespace definition
