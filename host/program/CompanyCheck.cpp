#include "CompanyCheck.h"

#include <QSet>
#include <QTemporaryDir>

#include "CompanyDoor.h"
#include "Embedded.h"
#include "FileCopy.h"
#include "HostCompany.h"
#include "Query.h"
#include "References.h"

namespace host {
namespace {

using definition::HeldAs;
using definition::ReferredRows;

using Tables = QMap<QString, QSet<QString>>;

Tables tablesOf(data::Connection& company) {
    Tables tables;
    for (const QVariantList& row :
         company
             .execute(QStringLiteral(
                 "Select O.[Name], C.[Name] From syscolumns C Inner Join sysobjects O On C.[id]=O.[id] "
                 "Where O.xtype='U'"))
             .rows)
        tables[row[0].toString().toLower()].insert(row[1].toString().toLower());
    return tables;
}

Tables tablesOfNewCompany() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("new.company"));
    createEmptyCompany(file);
    return tablesOf(*tsql::open(file, tsql::OpenMode::Existing));
}

class Check {
public:
    explicit Check(data::Connection& company) : m_company(company), m_tables(tablesOf(company)) {}

    QStringList findings() {
        const Tables expected = tablesOfNewCompany();
        for (const auto& [table, columns] : expected.asKeyValueRange()) {
            if (!m_tables.contains(table))
                m_findings.append(QStringLiteral("table %1 is missing").arg(table));
            else
                for (const QString& column : columns - m_tables[table])
                    m_findings.append(QStringLiteral("table %1 has no column %2").arg(table, column));
        }
        for (const ReferredRows& rows : definition::referredRows()) {
            const QString table = rows.table.toLower();
            if (!m_tables.contains(table))
                continue;
            const bool numbered = m_tables[table].contains(QStringLiteral("code_field"));
            const bool monthly = m_tables[table].contains(QStringLiteral("codemah"));
            if (numbered)
                findTwinsAndGaps(rows.table, monthly);
            for (const definition::Reference& reference : rows.references)
                if (numbered && m_tables.contains(reference.table.toLower()))
                    findOrphans(rows.table, monthly, reference);
        }
        return m_findings;
    }

private:
    // A line for each row that the statement finds, with its values put into the words.
    void find(const QString& statement, const QString& words) {
        for (const QVariantList& row : m_company.execute(statement).rows) {
            QString line = words;
            for (const QVariant& value : row)
                line = line.arg(data::valueText(value).trimmed());
            m_findings.append(line);
        }
    }

    void findTwinsAndGaps(const QString& table, bool monthly) {
        const QString month = monthly ? QStringLiteral("Codemah") : QStringLiteral("''");
        const QString each = monthly ? QStringLiteral(" Group By Codemah") : QString();
        find("Select " + month + ", Code_field, Count(*) From " + table + " Group By " +
                 (monthly ? QStringLiteral("Codemah, ") : QString()) + "Code_field Having Count(*)>1",
             table + QStringLiteral(", month %1: code %2 has %3 rows"));
        find("Select " + month + ", Count(Distinct Code_field), Max(Code_field) From " + table + each +
                 " Having Max(Code_field)>Count(Distinct Code_field)",
             table + QStringLiteral(", month %1: %2 codes, the highest is %3"));
    }

    void findOrphans(const QString& table, bool monthly, const definition::Reference& reference) {
        const QString sameMonth =
            monthly && reference.ofMonth ? QStringLiteral(" And R.Codemah=H.Codemah") : QString();
        if (reference.as == HeldAs::Code) {
            const QString held = "H." + reference.column + (reference.lessOne ? "+1" : "");
            find("Select " + held + ", Count(*) From " + reference.table + " H Where H." + reference.column +
                     " Is Not Null And " + held + "<>0 And Not Exists(Select * From " + table +
                     " R Where R.Code_field=" + held + sameMonth + ") Group By " + held,
                 reference.table + QStringLiteral(".") + reference.column +
                     QStringLiteral(": code %1 of %2 records is none of ") + table);
        }
        // Several pages have their amounts in the columns of one table: there a column without a row of this
        // page may be another's.
        if (reference.as != HeldAs::Amounts || reference.upgradeName.isEmpty())
            return;
        for (const QString& column : m_tables[reference.table.toLower()]) {
            bool isNumber = false;
            const int code = column.mid(reference.column.size()).toInt(&isNumber);
            if (isNumber && code > 0 && column.startsWith(reference.column, Qt::CaseInsensitive))
                find("Select H.Codemah, Count(*) From " + reference.table + " H Where H." + column +
                         "<>0 And Not Exists(Select * From " + table + " R Where R.Code_field=" +
                         QString::number(code) + sameMonth + ") Group By H.Codemah",
                     reference.table + u'.' + column +
                         QStringLiteral(", month %1: %2 amounts of no row of ") + table);
        }
    }

    data::Connection& m_company;
    const Tables m_tables;
    QStringList m_findings;
};

}  // namespace

QStringList checkCompany(data::Connection& company) {
    return Check(company).findings();
}

QStringList checkCompanyFile(const QString& file) {
    const auto company = openCompany(file);
    QStringList findings;
    if (!tsql::isSound(file))
        findings.append(QStringLiteral("the database file is damaged"));
    return findings + checkCompany(*company);
}

}  // namespace host
