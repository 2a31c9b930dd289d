#include "PostErrors.h"

namespace definition {

QString postErrorText(const data::ServerError& error, bool tellsRepeatedKeys) {
    const auto says = [&](const char* words) {
        return error.text().contains(QLatin1String(words), Qt::CaseInsensitive);
    };
    if (tellsRepeatedKeys &&
        (says("Key violation") || says("Violation of PRIMARY KEY") || says("duplicate key")))
        return QStringLiteral("توجه! كد ورودي تكراري است. كليد ESCرا بزنيد.");
    if (says("Cannot insert the value NULL into column"))
        return QStringLiteral("مشخصات به شكل كامل پر نشده است");
    return QStringLiteral("اشكال در ثبت اطلاعات");
}

}  // namespace definition
