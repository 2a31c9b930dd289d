#include "OrgForms.h"

namespace forms {
namespace {

const QString kGrid = QStringLiteral("DBGrid1");
const QString kConfirm = QStringLiteral("BitBtn1");
const QString kConfirmCaption = QStringLiteral("تاييد");

}  // namespace

const PageLayout& frmEdari() {
    static const PageLayout layout = {QStringLiteral("TFrmEdari"),
                                      QStringLiteral("فرم اطلاعات اداري"),
                                      kGrid,
                                      kConfirm,
                                      kConfirmCaption,
                                      {
                                          codeColumn("کد", 25, " کد را وارد کنيد"),
                                          // Titled with the chosen list.
                                          nameColumn("نام ", 725, " شرح را وارد کنيد "),
                                      }};
    return layout;
}

const QList<PageColumn>& sematColumns() {
    static const QList<PageColumn> columns = {
        textColumn("JobCode", "کد شغل ", kDefaultWidth, {}),
        markColumn("IsHard", "سخت-زيان آور", 80, {}),
    };
    return columns;
}

const PageLayout& grohTafsily2Form() {
    static const PageLayout layout = {
        QStringLiteral("TGrohTafsily2Form"),
        QStringLiteral("معرفي گروههاي تفصيلي 2"),
        kGrid,
        kConfirm,
        kConfirmCaption,
        {
            textColumn("Tafsily2GrohCod", "کد", 40, "کد گروه {L} وارد گردد"),
            textColumn("Tafsily2GrohNam", "نام گروه {L}", 710, "نام گروه {L} وارد گردد"),
        }};
    return layout;
}

const PageLayout& marakezForm() {
    static const PageLayout layout = {
        QStringLiteral("TMarakezForm"),
        QStringLiteral("مراکز هزينه"),
        kGrid,
        kConfirm,
        kConfirmCaption,
        {
            textColumn("Tafsily2", "{L}", kDefaultWidth, " کد مرکز هزينه وارد گردد"),
            textColumn("NamHesab", " نام {L}", 200, " نام مرکز هزينه وارد گردد"),
            textColumn("Station", "کد بيمه مرکز", 100, " کد بيمه  {D} وارد گردد "),
            textColumn("KarGah", "نام کارگاه", 200, " نام کارگاه  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
            textColumn("Karfarma", "نام کارفرما", 200,
                       " نام کارفرما  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
            textColumn("Addres", "آدرس کارگاه", 200,
                       " آدرس کارگاه  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
            textColumn("Buzy", "نوع فعاليت", 200, " نوع فعاليت  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
            textColumn("Shobeh", "شعبه تامين اجتماعي", 100,
                       " شعبه تامين اجتماعي  {D} جهت استفاده در گزارش بيمه معرفي گردد "),
        }};
    return layout;
}

}  // namespace forms
