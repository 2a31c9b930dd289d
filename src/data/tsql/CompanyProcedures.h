// The stored procedures that a company's database owns.
#pragma once

#include <QStringList>
#include <optional>

namespace tsql {

// The procedures that every company has, as the catalogue lists them.
const QStringList& companyProcedureNames();
// The T-SQL that a call stands for; nothing when there is no such procedure. Throws ServerError for a
// wrong number of arguments.
std::optional<QString> companyProcedure(QStringView name, const QStringList& arguments);

}  // namespace tsql
