// What a confirmation would do, seen before it: its rows against the month's stored ones, and what follows
// them. Worked out by the plan that carries the confirmation out; nothing is written.
#pragma once

#include <QString>

#include "ConfirmPlan.h"

namespace definition {

class DefinitionPage;

// One row of the page that is new, gone, moved or changed.
struct RowChange {
    qint64 before = 0, now = 0;  // its codes; 0 for none
    QString name;
    QString changes;  // "title: old ← new", separated by "؛ "
    bool isChanged = false;
};

// What the page's columns show of a row's values before and now, where they differ: "title: old ← new". A
// list whose items have other codes now, as `codeNow` has them, is the same.
QStringList valueChanges(const DefinitionPage& page,
                         const std::function<QVariant(const QString& field)>& before,
                         const std::function<QVariant(const QString& field)>& now,
                         const std::function<qint64(qint64)>& codeNow);

// The stored rows of the month against those of the page, in the order of the codes before.
QList<RowChange> changesOf(DefinitionPage& page, const ConfirmPlan& plan, const data::ResultSet& stored);

// Asks what the plan has to ask before it is carried out; true where the operator agrees. What others have
// changed is shown beside the question.
bool askBeforeConfirm(DefinitionPage& page, const ConfirmPlan& plan, const PlanQuestion& question);

// Shows what the page's confirmation would do, and confirms where the operator says so there.
void previewConfirm(DefinitionPage& page);

}  // namespace definition
