#include "Untdefbimdisk.h"

#include "LayoutWindow.h"

widgets::Form* _FrmDefBimDisk = nullptr;

namespace layouts {
namespace {

struct DiskField {
    QString title, name;
    int length;
    QString type, source;
    QString fixed = {};
};

QList<SeedRow> seedRows(const QList<DiskField>& fields) {
    QList<SeedRow> rows;
    for (const DiskField& field : fields)
        rows.append({.F_DES = field.title,
                     .F_NAME = field.name,
                     .F_LEN = field.length,
                     .F_TYPE = field.type,
                     .F_FIX = field.fixed,
                     .F_FIELD = field.source,
                     .F_LRF = " "});
    return rows;
}

QList<SeedRow> employerRows() {
    QList<SeedRow> rows = seedRows({
        {"شماره کارگاه", "dsk_id", 10, "C", "station"},
        {"نام کارگاه", "dsk_name", 30, "C", "shername"},
        {"نام کارفرما", "dsk_farm", 30, "C", "karfarma"},
        {"نشاني کارگاه", "dsk_adrs", 40, "C", "address"},
        {"نوع ليست", "dsk_kind", 1, "N", "listtype", "1"},
        {"سال", "dsk_yy", 2, "N", "year"},
        {"ماه", "dsk_mm", 2, "N", "month"},
        {"شماره ليست", "dsk_listno", 12, "C", "nolist"},
        {"شرح ليست", "dsk_disc", 30, "C", "desc"},
        {"تعداد نفرات ليست", "dsk_num", 5, "N", "tedad"},
        {"جمع روز کارکرد", "dsk_tdd", 6, "N", "totroz"},
        {"جمع دستمزد روزانه", "dsk_trooz", 12, "N", "dastmozd"},
        {"جمع دستمزد ماهانه", "dsk_tmah", 12, "N", "mablagh1"},
        {"جمع مزاياي ماهانه مشمول", "dsk_tmaz", 12, "N", "mablagh2"},
        {"جمع دستمزد ومزاياي ماهانه مشمول", "dsk_tmash", 12, "N", "insable"},
        {"دستمزد ومزاياي ماهانه مشمول وغير مشمول", "dsk_ttotl", 12, "N", "gross"},
        {"جع حق بيمه سهم بيمه شده", "dsk_tbime", 12, "N", "bimeh"},
        {"جمع حق بيمه سهم کارفرما", "dsk_tkoso", 12, "N", "krfbim"},
        {"بيمه بيکاري", "dsk_bic", 12, "N", "unwork"},
        {"نرخ حق بيمه", "dsk_rate", 2, "N", "nerkh"},
        {"نرخ پورسانتاژ", "dsk_prate", 2, "N", "nerkhp"},
        {"سخت و زيان آور", "dsk_bimh", 12, "N", "HardWork"},
        {"رديف پيمان", "mon_pym", 3, "C", "PeymanRow"},
    });
    rows.first().F_LRF.clear();
    return rows;
}

QList<SeedRow> workerRows() {
    return seedRows({
        {"شماره کارگاه", "dsw_id", 10, "C", "station"},
        {"سال", "dsw_yy", 2, "N", "year"},
        {"ماه", "dsw_mm", 2, "N", "month"},
        {"شماره ليست", "dsw_listno", 12, "C", "nolist"},
        {"شماره بيمه شده", "dsw_id1", 8, "C", "no_biemh"},
        {"نام بيمه شده", "dsw_fname", 20, "C", "name"},
        {"نام خانوادگي", "dsw_lname", 25, "C", "family"},
        {"نام پدر", "dsw_dname", 20, "C", "father"},
        {"شماره شناسنامه", "dsw_idno", 10, "C", "shenas"},
        {"محل صدور شناسنامه", "dsw_idplc", 30, "C", "sodur"},
        {"تاريخ صدور شناسنامه", "dsw_idate", 8, "C", "sodurdate"},
        {"تاريخ تولد", "dsw_bdate", 8, "C", "birthdate"},
        {"جنسيت", "dsw_sex", 3, "C", "sex"},
        {"مليت", "dsw_nat", 10, "C", "meliat"},
        {"شغل", "dsw_ocp", 50, "C", "semat"},
        {"تاريخ شروع بکار", "dsw_sdate", 8, "C", "stdate"},
        {"تاريخ ترک کار", "dsw_edate", 8, "C", "enddate"},
        {"روز کارکرد", "dsw_dd", 2, "N", "totroz"},
        {"دستمزد روزانه", "dsw_rooz", 12, "N", "dastmozd"},
        {"دستمزد ماهانه", "dsw_mah", 12, "N", "mablagh1"},
        {"مزاياي ماهانه مشمول ", "dsw_maz", 12, "N", "mablagh2"},
        {"دستمزد ومزاياي ماهانه مشمول ", "dsw_mash", 12, "N", "insable"},
        {"دستمزد ومزاياي ماهانه مشمول وغير مشمول", "dsw_totl", 12, "N", "gross"},
        {"حق بيمه سهم بيمه شده", "dsw_bime", 12, "N", "bimeh"},
        {"نرخ حق بيمه", "dsw_rate", 5, "N", "nerkh"},
        {"نرخ پورسانتاژ", "dsw_prate", 2, "N", "nerkhp"},
        {"کد شغل", "dsw_job", 6, "C", "JobCode"},
        {"كد ملي", "per_natcod", 10, "C", "secondcod"},
    });
}

const LayoutDefinition& frmDefBimDisk() {
    static const LayoutDefinition family = [] {
        LayoutDefinition disk = {
            .className = "TFrmDefBimDisk",
            .caption = "         ثبت مشخصات فايل ارسالي به سازمان تامين اجتماعي       ",
            .size = {966, 456},
            .top = 190,
            .columns = layoutColumns({270, 110, 72, 38, 45, 62, 105, 85, 140}),
            .create =
                " if EXISTS (select [name] from sysobjects where name='%1' and xtype='U')"
                " select 0 "
                " else "
                " create table %1("
                " [F_DES]   [varchar] (40), "
                " [F_NAME]  [varchar] (15), "
                " [F_LEN]   [int]         , "
                " [F_RAJ]   [int]         , "
                " [F_TYPE]  [varchar] (1) , "
                " [F_FIX]   [varchar] (50), "
                " [F_FIELD] [varchar] (10), "
                " [F_LR]    [varchar] (1) , "
                " [F_LRF]   [varchar] (1) , "
                " [F_LAT]   [varchar] (1) , "
                " [F_DEC]   [int]           "
                ")",
            .insert =
                "  insert into  %1 (f_des,f_name,f_len,f_raj,f_type,f_fix,f_field,f_lr,f_lrf,f_lat,f_dec)"
                " values(%2)",
            .longestField = 99,
            .deletes = DeleteRule::WithoutSource,
            .searches = true,
            .printTitle = " مشخصات  ساختار فايل بيمه ها ",
            .reportKey = "J_SABT_BANKSTRU",
        };
        limitTitles(disk.columns, 15);
        return disk;
    }();
    return family;
}

}  // namespace

void openInsuranceLayout(const SuiteHost& host, const QString& fileId, const QString& fileName) {
    static const LayoutFile employer = {"BCK_FBIM01", {}, employerRows(), {"PeymanRow"}};
    static const LayoutFile worker = {"BCK_FBIM11", {}, workerRows(), {"secondcod", "birthdate"}};
    const bool isEmployer = fileId == QLatin1String("BIMFILE1");
    LayoutFile file = isEmployer ? employer : worker;
    file.fileName = fileName;
    LayoutWindow::open(host, frmDefBimDisk(), file, _FrmDefBimDisk);
}

}  // namespace layouts
