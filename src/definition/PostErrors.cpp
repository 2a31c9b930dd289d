#include "PostErrors.h"

namespace definition {

QString postErrorText(const data::ServerError& error, bool tellsRepeatedKeys) {
    switch (error.fault()) {
        case data::Fault::RepeatedKey:
            if (tellsRepeatedKeys)
                return QStringLiteral("توجه! كد ورودي تكراري است. كليد ESCرا بزنيد.");
            break;
        case data::Fault::MissingValue:
            return QStringLiteral("مشخصات به شكل كامل پر نشده است");
        case data::Fault::LockTimeout:
            return QStringLiteral(
                "رديف ها در دست کاربر يا برنامه ديگري است و چيزي ثبت نشد. آنچه نوشته ايد مانده است؛ كمي بعد "
                "دوباره "
                "ثبت كنيد.");
        default:
            break;
    }
    return QStringLiteral("اشكال در ثبت اطلاعات");
}

}  // namespace definition
