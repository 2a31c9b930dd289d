// What the current user may do, and the pick lists that are narrowed to the codes he may use.
#pragma once

#include "SuiteHost.h"

// Fills Copy_Right, Print_Right and Report_Right of the context (upper-cased; empty without an entry).
void Load_User_Rights(data::HostDatabase& db, data::HostContext& context);

// The rights whose identifier begins with the prefix, as one text of entries such as
// "J_B_FIXPAY(Y),", parents before their children. Empty when the user has none of them.
QString Get_Rights_Tree(data::HostDatabase& db, const QString& prefix, const QString& userColumn);

// The codes of a table that the user may use, as a subquery to follow an "In".
QString Privilege_Subquery(const data::HostContext& context, const QString& table);

// Sets the host's pick list up for choosing a cost-centre group among the permitted ones, with the
// code that stands in the cell; returns the statement that fills it.
QString Prepare_Group_Pick(const SuiteHost& host, const QString& codeText, const QString& title);
