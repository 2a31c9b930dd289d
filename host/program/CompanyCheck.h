// Whether a company's database is whole: what an administrator wants to know before he trusts it, or a copy
// of it.
#pragma once

#include <QStringList>

#include "Connection.h"

namespace host {

// What is wrong with it, a line each, in English; nothing for a sound one. Looks for tables and columns that
// a new company has, codes that rows of a month share, gaps among them, and amounts and records of rows that
// are not there. Nothing is changed.
QStringList checkCompany(data::Connection& company);

// The same of a file, and whether that is a sound database at all. Refusal where it cannot be opened.
QStringList checkCompanyFile(const QString& file);

}  // namespace host
