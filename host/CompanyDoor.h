// Opening a company, and the month that its payroll stands in.
#pragma once

#include <memory>

#include "Connection.h"
#include "Errors.h"

namespace host {

// Another program has the company locked: it can be tried again.
class CompanyLocked : public data::Refusal {
public:
    using Refusal::Refusal;
};

// Opens a company file. Throws data::Refusal with a Persian sentence that says what to do when the file
// is missing, locked for three seconds, read-only, damaged or no company's.
std::unique_ptr<data::Connection> openCompany(const QString& file);

// The month of the options text of a company (its `SCode`), 1 to 12; 0 when it names none. Throws
// data::Refusal when the company has no options row.
int paymentMonth(data::Connection& connection, const QString& companyCode);
// Writes the month back; every other option keeps its text.
void setPaymentMonth(data::Connection& connection, const QString& companyCode, int month);

// The users that the company knows, by id.
QList<int> companyUsers(data::Connection& connection);

// An options text ("Key=value;…") with one value replaced, or added; keys compare without letter case.
QString withOption(const QString& options, const QString& key, const QString& value);

}  // namespace host
