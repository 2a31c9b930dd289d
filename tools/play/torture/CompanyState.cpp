#include "CompanyState.h"

#include <QFile>

#include "CompanyCheck.h"
#include "CompanyDoor.h"
#include "CompanyUse.h"
#include "Errors.h"
#include "Query.h"

namespace play {
namespace {

const QString kPrefix = QStringLiteral("W_");

QString rowText(const data::ResultSet& found, const QVariantList& row) {
    QStringList values;
    for (qsizetype column = 0; column < row.size(); ++column)
        // What the code was before is of no account once it is stored.
        if (row[column].isValid() &&
            found.columns[column].name.compare(QLatin1String("Codetemp"), Qt::CaseInsensitive) != 0)
            values.append(found.columns[column].name.toLower() + u'=' + data::valueText(row[column]));
    values.sort();
    return values.join(u'|');
}

}  // namespace

CompanyState stateOf(const QString& file, QStringList& trouble) {
    CompanyState state;
    try {
        const host::CompanyUse use(file);
        if (!use.cameFirst())
            trouble.append(QStringLiteral("somebody has it open"));
        const auto company = host::openCompany(file);
        host::dropLeftTables(*company, kPrefix);
        trouble += host::checkCompany(*company);
        for (const QVariantList& table :
             company->execute(QStringLiteral("select name from sysobjects where xtype='U'")).rows) {
            const QString name = table[0].toString();
            if (name.startsWith(kPrefix))
                trouble.append("a work table is left: " + name);
            if (name.startsWith(kPrefix) ||
                name.compare(QLatin1String("Grid_State"), Qt::CaseInsensitive) == 0)
                continue;
            const data::ResultSet found = company->execute("select * from " + data::bracketed(name));
            QStringList& rows = state[name.toLower()];
            for (const QVariantList& row : found.rows)
                rows.append(rowText(found, row));
            rows.sort();
        }
    } catch (const data::TextException& error) {
        trouble.append(error.text());
    }
    return state;
}

void copyAnew(const QString& from, const QString& to) {
    for (const char* end : {"", "-wal", "-shm", "-use"})
        QFile::remove(to + QLatin1String(end));
    QFile::copy(from, to);
}

QString differenceOf(const CompanyState& one, const CompanyState& other) {
    QStringList names;
    for (const QString& table : one.keys() + other.keys())
        if (one.value(table) != other.value(table) && !names.contains(table))
            names.append(table);
    return names.join(QStringLiteral(", "));
}

QStringList amountsOf(const CompanyState& state) {
    QMap<QString, QStringList> items;
    for (const QString& row : state.value(QStringLiteral("payroll"))) {
        QMap<QString, QString> values;
        for (const QString& value : row.split(u'|'))
            values.insert(value.section(u'=', 0, 0), value.section(u'=', 1));
        for (const auto [column, amount] : values.asKeyValueRange())
            if (column.startsWith(QLatin1String("code_")) && column != QLatin1String("code_0") &&
                amount != QLatin1String("0"))
                items[column].append(values.value("code_0") + values.value("codemah") + u':' + amount);
    }
    QStringList amounts;
    for (QStringList& item : items) {
        item.sort();
        amounts.append(item.join(u' '));
    }
    amounts.sort();
    return amounts;
}

}  // namespace play
