#include "Untdefine.h"

#include "DatabaseHelpers.h"
#include "LayoutWindow.h"

widgets::Form* _FrmDefine = nullptr;

namespace layouts {
namespace {

struct BankField {
    QString title, source;
};

constexpr int kCommonFields = 10;

QList<SeedRow> seedRows(bool loan) {
    static const QList<BankField> fields = {
        {"شماره حساب", "no_bank"},  {"مبلغ پرداختي", "netpay"},
        {"تاريخ", "date"},          {"نام", "name"},
        {"نام خانوادگي", "family"}, {"کد پرسنلي", "code"},
        {"کد دوم", "secondcod"},    {"سرفصل نوع حساب", "bankcode"},
        {"شماره رديف", "RadifNo"},  {"تعداد افراد", "NumberNo"},
        {"شماره وام", "VamNo"},     {"ش ح قسط 1", "HESAB_G"},
        {"ش ح قسط 2", "HESAB_K"},
    };
    QList<SeedRow> rows;
    for (const BankField& field : loan ? fields : fields.first(kCommonFields))
        rows.append({.F_DES = field.title, .F_TYPE = "C", .F_FIELD = field.source});
    return rows;
}

QList<LayoutColumn> bankColumns() {
    QList<LayoutColumn> columns = layoutColumns({160, 130, 80, 60, 60, 75, 120, 95, 130});
    limitTitles(columns, 15);
    LayoutColumn repeat = {{.field = "F_REPEAT",
                            .title = "تكرار(R)",
                            .width = 75,
                            .kind = widgets::ColumnKind::Cycle,
                            .centred = true},
                           " در صورتيكه اين مقدار در رديف بعد تكرار ميگردد انتخاب شود "};
    repeat.kept = columns.last().kept;
    repeat.cycle.steps = {{"", "R"}, {"R", ""}};
    columns.insert(columns.size() - 1, repeat);
    return columns;
}

const LayoutDefinition& frmDefine() {
    static const LayoutDefinition family = {
        .className = "TFrmDefine",
        .caption = "         ثبت مشخصات فايل ارسالي به بانک  ",
        .size = {1024, 712},
        .columns = bankColumns(),
        .create =
            " If EXISTS (select [name] from sysobjects where name='%1' and xtype='U')"
            " Select 0 "
            " Else "
            " Create Table %1("
            " [F_DES]   [varchar] (15), "
            " [F_NAME]  [varchar] (15), "
            " [F_LEN]   [int]         , "
            " [F_RAJ]   [int]         , "
            " [F_TYPE]  [varchar] (1) , "
            " [F_FIX]   [varchar] (50), "
            " [F_FIELD] [varchar] (10), "
            " [F_LR]    [varchar] (1) , "
            " [F_LRF]   [varchar] (1) , "
            " [F_REPEAT] [varchar] (1) , "
            " [F_LAT]   [varchar] (1)   "
            ")",
        .upgrades = {" If EXISTS (select b.[name] from Sysobjects a inner join Syscolumns b on a.id=b.id "
                     "where a.name='%1' and b.name='F_REPEAT' and a.xtype='U')"
                     " Select 0 "
                     " Else "
                     " Alter Table %1 Add [F_REPEAT] [varchar] (1) "},
        .insert =
            "  insert into  %1 (f_des,f_name,f_len,f_raj,f_type,f_fix,f_field,f_lr,f_lrf,f_lat)"
            " values(%2) ",
        .storesDecimals = false,
        .longestField = 99,
        .deletes = DeleteRule::AfterRowTen,
        .printTitle = " مشخصات  ساختار فايل بانك ها ",
        .reportKey = "J_SABT_BIMEHSTRU",
    };
    return family;
}

// Nothing in the suite's T-SQL renames a table alike on every server: the rows are carried over.
QStringList carryOver(const QString& from, const QString& to) {
    return {"Select * Into " + to + " From " + from, "Drop Table " + from};
}

// The layout tables that there are for the file, in lower case.
QSet<QString> tablesOf(data::HostDatabase& db, BankFile file) {
    QSet<QString> tables;
    const QString any = bankLayoutTable(file, 0).chopped(1) + u'%';
    for (const QVariantList& row :
         db.Connection
             ->execute("Select [Name] From Sysobjects Where Upper(XType)='U' And [Name] Like " +
                       data::quoted(any))
             .rows)
        tables.insert(row[0].toString().toLower());
    return tables;
}

}  // namespace

QString bankLayoutTable(BankFile file, int row) {
    static constexpr const char* prefixes[] = {"BCK_FBANK", "BCK_FBANKF", "BCK_FBANKV"};
    return prefixes[static_cast<int>(file)] + QString::number(row);
}

void openBankLayout(const SuiteHost& host, BankFile file, int row, const QString& fileName) {
    LayoutWindow::open(host, frmDefine(),
                       {bankLayoutTable(file, row), {}, seedRows(file == BankFile::Loan), {}, fileName},
                       _FrmDefine);
}

QStringList bankLayoutMoves(data::HostDatabase& db, BankFile file, const QList<LayoutMove>& moves) {
    const auto moved = [](const LayoutMove& move) { return move.before != move.now; };
    if (std::none_of(moves.begin(), moves.end(), moved))
        return {};
    const QSet<QString> tables = tablesOf(db, file);
    const auto table = [file](int row) { return bankLayoutTable(file, row); };
    const auto isThere = [&](int row) { return tables.contains(table(row).toLower()); };
    const auto aside = [&](int row) { return table(row) + QStringLiteral("_moving"); };
    // Aside first, then to their places: so no order of moves can meet a table that has not left yet.
    QStringList statements;
    QList<LayoutMove> carried;
    QSet<int> left;
    for (const LayoutMove& move : moves) {
        if (!moved(move) || !isThere(move.before))
            continue;
        left.insert(move.before);
        if (move.now == 0) {
            statements.append("Drop Table " + table(move.before));
            continue;
        }
        statements += carryOver(table(move.before), aside(move.before));
        carried.append(move);
    }
    // What still stands in a row's new place was left behind by a row that is long gone.
    for (const LayoutMove& move : moves)
        if (moved(move) && move.now != 0 && isThere(move.now) && !left.contains(move.now))
            statements.append("Drop Table " + table(move.now));
    for (const LayoutMove& move : carried)
        statements += carryOver(aside(move.before), table(move.now));
    return statements;
}

}  // namespace layouts
