#include "PayOptions.h"

#include <cmath>
#include <limits>

#include "Errors.h"
#include "Query.h"
#include "TextHelpers.h"

namespace {

constexpr double kHoursOfDay = 7.2;
constexpr int kLastMonthCode = 99;  // what two characters hold

[[noreturn]] void refuse(const QString& key, const QString& value) {
    throw data::Refusal(
        value.isEmpty()
            ? QStringLiteral(
                  "تنظيم «%1» در تنظيمات حقوق و دستمزد (Options) نيست. آن را در تنظيمات وارد کنيد.")
                  .arg(key)
            : QStringLiteral("مقدار «%2» براي تنظيم «%1» در تنظيمات حقوق و دستمزد (Options) معتبر نيست. آن "
                             "را اصلاح کنيد.")
                  .arg(key, value));
}

class OptionsText {
public:
    explicit OptionsText(const QString& text) : m_text(text) {}

    QString text(const char* key) const { return Get_Param(m_text, QString::fromLatin1(key)); }

    qint32 integer(const char* key) const {
        bool ok = false;
        const int value = text(key).trimmed().toInt(&ok);
        return ok ? value : refused(key);
    }

    double real(const char* key) const {
        bool ok = false;
        const double value = text(key).trimmed().toDouble(&ok);
        return ok && std::abs(value) <= std::numeric_limits<qint32>::max() ? value : refused(key);
    }

private:
    int refused(const char* key) const { refuse(QString::fromLatin1(key), text(key)); }

    QString m_text;
};

QString monthCode(const OptionsText& options) {
    const qint32 month = options.integer("Month_Curent");
    if (month < 1 || month > kLastMonthCode)
        refuse(QStringLiteral("Month_Curent"), QString::number(month));
    return Pad_Left(QString::number(month), 2);
}

}  // namespace

TJFieldLen Load_Pay_Options(data::HostDatabase& db, const data::HostContext& context) {
    data::Query query(db.Connection);
    query.setSql(
        "Select Col_length('person','code') as len_code1, Col_length('person','koll') as len_kol1, "
        "Col_length('person','moein') as len_moein1, Col_length('person','tafsily') as len_tafsily1, "
        "Options.Payment From Options Where SCode =" +
        data::quoted(context.SCode_1 + context.SCode_2));
    query.open();
    if (query.isEmpty())
        throw data::Refusal(QStringLiteral("تنظيمات حقوق و دستمزد براي شرکت «%1» در جدول Options ثبت نشده "
                                           "است. ابتدا تنظيمات شرکت را وارد کنيد.")
                                .arg(context.SCode_1 + context.SCode_2));

    TJFieldLen record;
    record.Len_Code1 = static_cast<qint32>(query.integer(QStringLiteral("Len_Code1")));
    record.Len_Kol1 = static_cast<qint32>(query.integer(QStringLiteral("Len_Kol1")));
    record.Len_Moein1 = static_cast<qint32>(query.integer(QStringLiteral("Len_Moein1")));
    record.Len_Tafsily1 = static_cast<qint32>(query.integer(QStringLiteral("Len_Tafsily1")));

    const OptionsText options(query.text(QStringLiteral("Payment")));
    record.Month_Curent = monthCode(options);
    record.Karane = options.integer("Karane");
    record.Minute = options.text("Minute") == QStringLiteral("دقيقه") ? 0 : 1;
    record.TadilOrd = options.text("TadilOrd") == QStringLiteral("درآمد جاري") ? 0 : 1;
    record.Tadil_Mal = options.integer("Tadil_Mal");
    record.TStart = options.text("TStart");
    record.OffType = options.text("OffType") == QStringLiteral("روز") ? 1 : 2;
    record.KarZero = options.integer("KarZero");
    record.DateShow = options.integer("DateShow");
    record.MonDays = options.integer("MonDays");
    record.Clock_Mon = options.real("Clock_Mon");
    record.Rial = options.integer("Rial");
    record.ClockMMon = options.real("ClockMMon");
    record.RozInit = options.integer("RozInit");
    record.HoliDay = static_cast<qint32>(options.real("HoliDay"));
    record.DayClock = kHoursOfDay;
    record.OffClock = kHoursOfDay;
    return record;
}
