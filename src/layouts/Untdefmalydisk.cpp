#include "Untdefmalydisk.h"

#include "LayoutWindow.h"

widgets::Form* _FrmDefMalyDisk = nullptr;

namespace layouts {
namespace {

struct TaxField {
    QString title, code;
    int length;
    QString type;
};

struct TaxFile {
    QString table;
    QList<TaxField> fields;
};

const QList<TaxFile>& taxFiles() {
    static const QList<TaxFile> files = {
        {"BCK_TAX1",
         {
             {"نوع تابعيت", "BF1", 1, "N"},
             {"نوع اطلاعات", "BF2", 1, "N"},
             {"كدملي-فراگيرتابعيت", "BF3", 15, "C"},
             {"نام", "BF4", 30, "C"},
             {"نام خانوادگي", "BF5", 30, "C"},
             {"كشور", "BF6", 1, "N"},
             {"شناسه كارمند", "BF7", 20, "C"},
             {"مدرك تحصيلي", "BF8", 1, "N"},
             {"سمت", "BF9", 50, "C"},
             {"نوع بيمه", "BF10", 1, "N"},
             {"نام بيمه", "BF11", 50, "C"},
             {"شماره بيمه", "BF12", 20, "C"},
             {"كد پستي محل سكونت", "BF13", 20, "C"},
             {"نشاني محل سكونت", "BF14", 150, "C"},
             {"تاريخ استخدام", "BF15", 8, "C"},
             {"نوع استخدام", "BF16", 1, "N"},
             {"محل خدمت", "BF17", 50, "C"},
             {"وضعيت محل خدمت", "BF18", 1, "N"},
             {"نوع قرارداد", "BF19", 1, "N"},
             {"تاريخ پايان كار", "BF20", 8, "C"},
             {"وضعيت كارمند", "BF21", 1, "N"},
             {"شماره تلفن همراه", "BF22", 30, "C"},
             {"پست الكترونيك", "BF23", 30, "C"},
         }},
        {"BCK_TAX2",
         {
             {"كد ملي/فراگير", "PF1", 10, "C"},
             {"نوع پرداخت", "PF2", 1, "N"},
             {"تعداد ماه كاركرد", "PF3", 1, "N"},
             {"آخرين ماه فعاليت", "PF4", 1, "N"},
             {"نوع ارز", "PF5", 1, "N"},
             {"نرخ تسعير ارز", "PF6", 1, "N"},
             {"تاريخ شروع به كار", "PF7", 8, "C"},
             {"تاريخ پايان كار", "PF8", 8, "C"},
             {"وضعيت كارمند", "PF9", 1, "N"},
             {"وضعيت محل خدمت", "PF10", 1, "N"},
             {"ناخالص حقوق و دستمزد نقدي مستمر ماه جاري", "PF11", 1, "N"},
             {"پرداخت هاي مستمر معوق", "PF12", 1, "N"},
             {"مسكن", "PF13", 1, "N"},
             {"مبلغ كسر شده از حقوق بابت مسكن", "PF14", 1, "N"},
             {"وسيله نقليه", "PF15", 1, "N"},
             {"مبلغ كسر شده از حقوق بابت وسيله نقليه", "PF16", 1, "N"},
             {"پرداخت مزاياي مستمر غير نقدي ماه جاري", "PF17", 1, "N"},
             {"هزينه هاي درماني موضوع ماده 137", "PF18", 1, "N"},
             {"حق بيمه پرداختي موضوع ماده 137", "PF19", 1, "N"},
             {"تسهيلات اعتباري مسكن از بانكها بند الف ماده 139", "PF20", 1, "N"},
             {"ساير معافيت ها", "PF21", 1, "N"},
             {"ناخالص اضافه كاري ماه جاري", "PF22", 1, "N"},
             {"ساير پرداخت هاي غير مستمر نقدي ماه جاري", "PF23", 1, "N"},
             {"پاداش هاي موردي ماه جاري", "PF24", 1, "N"},
             {"پرداخت هاي غير مستمر نقدي معوقه ماه جاري", "PF25", 1, "N"},
             {"معافيت هاي غير مستمر نقدي", "PF26", 1, "N"},
             {"پرداخت مزاياي غير مستمر غير نقدي ماه جاري", "PF27", 1, "N"},
             {"عيدي  و مزاياي پايان سال", "PF28", 1, "N"},
             {"بازخريد مرخصي و بازخريد سنوات", "PF29", 1, "N"},
             {"معافيت فقط براي بند 5 ماده 91", "PF30", 1, "N"},
             {"معافيت مربوط به مناطق آزاد تجاري", "PF31", 1, "N"},
             {"معافيت موضوع قانون اجتناب از اخد ماليات مضاعف", "PF32", 1, "N"},
             {"ماليات متعلقه حقوق و دستمزد نقدي درامد و مزاياي غير نقدي عيدي و مزاياخريد مرخصي و سنوات",
              "PF33", 1, "N"},
             {"جمع خالص ماليات ماه جاري", "PF34", 1, "N"},
         }},
        {"BCK_TAX3",
         {
             {"سال", "KF1", 1, "N"},
             {"ماه", "KF2", 1, "N"},
             {"بدهي مالياتي ماه جاري", "KF3", 1, "N"},
             {"بدهي مالياتي ماه گذشته", "KF4", 1, "N"},
             {"تاريخ ثبت در دفتر روزنامه", "KF5", 1, "N"},
             {"نحوه پرداخت", "KF6", 1, "N"},
             {"شماره سريال چك", "KF7", 15, "C"},
             {"تاريخ چك", "KF8", 8, "C"},
             {"كد نام بانك", "KF9", 1, "N"},
             {"نام شعبه", "KF10", 50, "C"},
             {"شماره حساب", "KF11", 1, "N"},
             {"مبلغ پرداختي/مبلغ چك", "KF12", 1, "N"},
             {"تاريخ پرداخت خزانه", "KF13", 8, "C"},
             {"مبلغ پرداختي خزانه", "KF14", 1, "N"},
         }},
    };
    return files;
}

QList<SeedRow> seedRows(const QString& table) {
    QList<SeedRow> rows;
    for (const TaxFile& file : taxFiles())
        if (file.table == table)
            for (const TaxField& field : file.fields)
                rows.append({.F_DES = field.title,
                             .F_NAME = field.code,
                             .F_LEN = field.length,
                             .F_RAJ = static_cast<int>(rows.size()) + 1,
                             .F_TYPE = field.type,
                             .F_FIELD = field.code});
    return rows;
}

const LayoutDefinition& frmDefMalyDisk() {
    static const LayoutDefinition family = {
        .className = "TFrmDefMalyDisk",
        .caption = "         اطلاعات فايل مالياتي",
        .size = {966, 456},
        .columns = layoutColumns({300, 150, 65, 40, 40, 55, 90, 80, 150}),
        .create =
            " If EXISTS (select [name] from sysobjects where name='%1' and xtype='U')"
            " Select 0 "
            " Else "
            " Create Table %1( "
            " [F_DES]   [varchar] (200),"
            " [F_NAME]  [varchar] (100) , "
            " [F_LEN]   [int]          , "
            " [F_RAJ]   [int]          , "
            " [F_TYPE]  [varchar] (1)  , "
            " [F_FIX]   [varchar] (50) , "
            " [F_FIELD] [varchar] (100),"
            " [F_LR]    [varchar] (1)  , "
            " [F_LRF]   [varchar] (1)  , "
            " [F_LAT]   [varchar] (1)  , "
            " [F_DEC]   [int]            "
            ")",
        .insert =
            " insert into  %1 (f_des,f_name,f_len,f_raj,f_type,f_fix,f_field,f_lr,f_lrf,f_lat,f_dec)"
            " values(%2) ",
        .deletes = DeleteRule::AfterRowTen,
        .reportKey = "J_SABT_TAX",
    };
    return family;
}

}  // namespace

void openTaxLayout(const SuiteHost& host, const QString& table, const QString& caption,
                   const QString& fileName) {
    LayoutWindow::open(host, frmDefMalyDisk(), {table, caption, seedRows(table), {}, fileName},
                       _FrmDefMalyDisk);
}

void prepareTaxLayouts(data::HostDatabase& db, const QStringList& tables) {
    QList<LayoutFile> files;
    for (const QString& table : tables)
        files.append({table, {}, seedRows(table), {}});
    PrepareLayouts(db, frmDefMalyDisk(), files);
}

}  // namespace layouts
