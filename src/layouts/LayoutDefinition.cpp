#include "LayoutDefinition.h"

#include "DatabaseHelpers.h"
#include "Errors.h"

namespace layouts {
namespace {

using widgets::ColumnKind;

constexpr int kKeptOfLength = 3;
constexpr int kKeptOfOthers = 8;

QString insertValues(const LayoutDefinition& family, const SeedRow& row) {
    using data::quoted;
    QStringList values = {quoted(row.F_DES),          quoted(row.F_NAME), QString::number(row.F_LEN),
                          QString::number(row.F_RAJ), quoted(row.F_TYPE), quoted(row.F_FIX),
                          quoted(row.F_FIELD),        quoted(row.F_LR),   quoted(row.F_LRF),
                          quoted(row.F_LAT)};
    if (family.storesDecimals)
        values.append(QStringLiteral("0"));
    return values.join(u',');
}

void refuseMissingColumns(const data::ResultSet& found, const LayoutDefinition& family,
                          const QString& table) {
    QSet<QString> known;
    for (const QVariantList& row : found.rows)
        known.insert(row[0].toString().toLower());
    QStringList wanted = {QStringLiteral("F_FIELD")}, missing;
    for (const LayoutColumn& column : family.columns)
        wanted.append(column.grid.field);
    for (const QString& column : wanted)
        if (!known.contains(column.toLower()))
            missing.append(column);
    if (!missing.isEmpty())
        throw data::Refusal(
            QStringLiteral("جدول «%1» ستون %2 را ندارد و قابل ويرايش نيست. ساختار جدول را اصلاح کنيد.")
                .arg(data::pathInText(table), data::pathInText(missing.join(QStringLiteral(", ")))));
}

bool isEmpty(data::HostDatabase& db, const QString& selection) {
    data::Query query(db.Connection);
    query.setSql(selection);
    query.open();
    return query.isEmpty();
}

}  // namespace

QList<LayoutColumn> layoutColumns(const QList<int>& widths) {
    const StepCycle type = {{{"C", "N"}, {"N", "F"}}, "C"};
    const StepCycle alignment = {{{"L", "R"}, {"R", " "}}, "L", "F_TYPE", "C"};
    const StepCycle script = {{{"F", "L"}, {"L", " "}}, "F"};
    QList<LayoutColumn> columns = {
        {{.field = "F_DES", .title = "نام ميدان", .kind = ColumnKind::Name}, " عنوان فيلد وارد گردد"},
        {{.field = "F_NAME", .title = "نام فيلد"}, " نام فيلد وارد گردد"},
        {{.field = "F_LEN", .title = "طول ميدان", .kind = ColumnKind::Number, .totalled = false},
         "  طول فيلد وارد گردد ",
         kKeptOfLength},
        {{.field = "F_RAJ", .title = "ترتيب", .kind = ColumnKind::Number, .totalled = false},
         " شماره ستون فيلد در تشکيل فايل وارد گردد ",
         kKeptOfOthers},
        {{.field = "F_TYPE", .title = "نوع ", .kind = ColumnKind::Cycle, .centred = true},
         " نوع فيلد انتخاب شود(C,N,F) ",
         kKeptOfOthers,
         type},
        {{.field = "F_LR", .title = "همترازي", .kind = ColumnKind::Cycle, .centred = true},
         " در صورت همترازي فيلد از چپ يا راست انتخاب گردد(L,R) ",
         kKeptOfOthers,
         alignment},
        {{.field = "F_LRF", .title = "كاراكتر همترازي", .maxLength = 1},
         " در صورت انتخاب همترازي کارکتر(حرف) همترازي وارد گردد ",
         kKeptOfOthers},
        {{.field = "F_LAT", .title = "فارسي لاتين", .kind = ColumnKind::Cycle, .centred = true},
         " در صورت فارسي يا لاتين بودن فيلد انتخاب گردد(F,L) ",
         kKeptOfOthers,
         script},
        {{.field = "F_FIX", .title = "مقدار ثابت", .maxLength = 50},
         " در صورتيکه مقدار فيلد به شکل ثابت پر ميشود مقدار ثابت وارد گردد ",
         kKeptOfOthers},
    };
    for (int column = 0; column < columns.size(); ++column)
        columns[column].grid.width = widths.value(column, columns[column].grid.width);
    return columns;
}

void limitTitles(QList<LayoutColumn>& columns, int characters) {
    for (LayoutColumn& column : columns)
        if (column.grid.field == QLatin1String("F_DES") || column.grid.field == QLatin1String("F_NAME"))
            column.grid.maxLength = characters;
}

void insertRows(data::HostDatabase& db, const LayoutDefinition& family, const QString& table,
                const QList<SeedRow>& rows) {
    std::optional<data::Transaction> transaction;
    if (!db.Connection->inTransaction())
        transaction.emplace(*db.Connection);
    QStringList statements;
    for (const SeedRow& row : rows)
        statements.append(family.insert.arg(table, insertValues(family, row)));
    Exec_Sql(db, statements.join(u'\n'));
    if (transaction)
        transaction->commit();
}

void PrepareLayouts(data::HostDatabase& db, const LayoutDefinition& family, const QList<LayoutFile>& files) {
    QStringList text, questions;
    for (const LayoutFile& file : files) {
        text.append(family.create.arg(file.table));
        for (const QString& upgrade : family.upgrades)
            text.append(upgrade.arg(file.table));
        questions.append(
            "Select C.[Name] From syscolumns As C inner join sysobjects As O On(C.[id]=O.[id]) "
            "where O.[Name]=" +
            data::quoted(file.table));
        questions.append("select * from " + file.table);
    }
    // What needed no making may answer, too: those that count are the last.
    const QList<data::ResultSet> answers =
        db.Connection->executeAll((text + questions).join(u'\n')).last(questions.size());
    for (qsizetype place = 0; place < files.size(); ++place) {
        refuseMissingColumns(answers[2 * place], family, files[place].table);
        if (answers[2 * place + 1].rows.isEmpty())
            insertRows(db, family, files[place].table, files[place].rows);
    }
}

QList<SeedRow> missingRows(data::HostDatabase& db, const LayoutFile& file) {
    QList<SeedRow> missing;
    for (const QString& source : file.lateSources)
        if (isEmpty(db, " Select * from " + file.table + " Where f_field=" + data::quoted(source)))
            std::copy_if(file.rows.begin(), file.rows.end(), std::back_inserter(missing),
                         [&](const SeedRow& row) { return row.F_FIELD == source; });
    return missing;
}

}  // namespace layouts
