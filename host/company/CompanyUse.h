// Who has a company file open. Locks of the database come and go with its transactions; this one is held as
// long as a program has the company, and goes with it however it ends.
#pragma once

#include <QString>

#include "Connection.h"

namespace host {

class CompanyUse {
public:
    // Where the lock cannot be held, other programs count as there.
    explicit CompanyUse(const QString& file);
    ~CompanyUse();
    CompanyUse(const CompanyUse&) = delete;
    CompanyUse& operator=(const CompanyUse&) = delete;

    // Whether no other program had it open when this one came: the others wait until it shares.
    bool cameFirst() const { return m_cameFirst; }
    void share();

private:
    int m_file = -1;
    bool m_cameFirst = false;
};

// Drops the work tables, by the prefix of their names, that programs have left which were ended half-way.
// Only for one who came first: the others' are in use.
void dropLeftTables(data::Connection& connection, const QString& prefix);

}  // namespace host
