// Who speaks of a cost centre by its code: employees, vouchers, another program's records, users' rights.
#pragma once

#include <QString>

namespace orglists {

// Where another program of the suite keeps the codes of the centres that it uses; empty where none does.
struct LinkedField {
    QString database, table, field;
};

// As the suite's link options have it.
LinkedField linkedField();

// Whether employees, vouchers or the linked field hold the code.
bool isCentreUsed(const QString& code, const LinkedField& linked);

// The one who makes a centre (`before` is empty) may use it; one that gets another code keeps its users.
void keepCentreRights(const QString& before, const QString& now);

}  // namespace orglists
