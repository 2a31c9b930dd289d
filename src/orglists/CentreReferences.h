// Who speaks of a cost centre by its code: employees, vouchers, another program's records, users' rights.
#pragma once

#include <QString>

#include "HostContext.h"
#include "Questions.h"

namespace orglists {

// Where another program of the suite keeps the codes of the centres that it uses; empty where none does.
struct LinkedField {
    QString database, table, field;
};

// Asks for it, as the suite's link options have it; `linked` is there until that is answered.
void askLinkedField(data::Questions& questions, LinkedField& linked);

// Whether the linked field holds the code.
bool isLinked(data::HostDatabase& db, const QString& code, const LinkedField& linked);

// The one who makes a centre (`before` is empty), the user of that number, may use it; one that gets another
// code keeps its users.
void keepCentreRights(data::HostDatabase& db, int user, const QString& before, const QString& now);

// The same for many that he makes at once.
void giveCentreRights(data::HostDatabase& db, int user, const QStringList& codes);

}  // namespace orglists
