// How cost centres are numbered: a group's code, and behind it the centre's number in that group.
#pragma once

#include "Connection.h"

namespace orglists {

// The code behind the highest one of the group, `width` characters long. Refusal when the group's numbers
// are used up, or when its highest code ends in no number that could be counted on from.
QString nextCentreCode(data::Connection& connection, const QString& group, int width);

}  // namespace orglists
