#include "CentreNumbering.h"

#include "Errors.h"
#include "Query.h"
#include "TextHelpers.h"

namespace orglists {
namespace {

QString highestCode(data::Connection& connection, const QString& group) {
    data::Query query(&connection);
    query.setSql("Select Max(Tafsily2) As sMax From Tafsily2 Where SubString(Tafsily2, 1, " +
                 QString::number(group.size()) + ") = " + data::quoted(group));
    query.open();
    return query.text(QStringLiteral("sMax"));
}

}  // namespace

QString nextCentreCode(data::Connection& connection, const QString& group, int width) {
    const int digits = width - static_cast<int>(group.size());
    const QString highest = highestCode(connection, group).mid(group.size()).trimmed();
    bool isNumber = highest.isEmpty();
    const quint64 number = isNumber ? 1 : highest.toULongLong(&isNumber) + 1;
    if (!isNumber)
        throw data::Refusal(
            QStringLiteral(
                "آخرين کد گروه «%1» عدد نيست و کد بعدي از آن ساخته نمي شود. کد را خودتان وارد کنيد.")
                .arg(group));
    const QString tail = QString::number(number);
    if (tail.size() > digits)
        throw data::Refusal(
            QStringLiteral("شماره هاي گروه «%1» تمام شده است. گروه ديگري انتخاب کنيد.").arg(group));
    return group + Pad_Left_Char(tail, u'0', digits);
}

}  // namespace orglists
