// Small questions to the company's database, all asked on the host's one scratch query: what a helper
// read is gone when the next one runs. The server's refusals (data::ServerError) pass through.
#pragma once

#include <QSet>

#include "HostContext.h"
#include "Query.h"

// Runs a statement that returns no rows. An empty text is done at once; false without a connection.
bool Exec_Sql(data::HostDatabase& db, const QString& sql);

// Whether the statement finds a row; it is read no further.
bool Finds_Row(data::HostDatabase& db, const QString& statement);

// Whether the company's database has a table, view, procedure or trigger of that name; the name is
// trimmed and compared in capitals.
bool Is_Object_Exist(data::HostDatabase& db, const QString& name);

// Whether the user table has the column. A "##" table is looked up in the temporary catalogue.
bool Is_Column_Exist(data::HostDatabase& db, const QString& table, const QString& column);

// The columns of a user table, in lower case; for those who would ask for many of them in turn.
QSet<QString> Column_Names(data::HostDatabase& db, const QString& table);

// Whether the value stands in that column already, blanks and kashida apart.
bool Is_Name_Repeated(data::HostDatabase& db, const QString& table, const QString& column,
                      const QString& value);

// Whether the company's dependency procedure still finds the code in use.
bool Is_Depended(data::HostDatabase& db, const QString& procedure, const QString& code);

// The result column of the first row whose key column has the value; empty when none has.
QString Get_Top_Value(data::HostDatabase& db, const QString& keyColumn, const QString& keyValue,
                      const QString& resultColumn, const QString& table);

// The statements that give "PAYROLL" or "EZAFEHKAR", in capitals, a column for each of that many salary items
// beyond the twentieth: the first twenty belong to the company's schema. `known` are the columns that it has,
// in lower case. None for another table.
QStringList payItemColumns(const QString& table, const QSet<QString>& known, qint64 items);

// Gives the table those that it lacks for the month's salary items.
void Add_PayItem_Columns(data::HostDatabase& db, const QString& table, data::Query& query,
                         const QString& codeMah);
