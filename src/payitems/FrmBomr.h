// Life insurance: the shares of employer and employee.
#pragma once

#include "PageDefinition.h"

namespace payitems {

const definition::PageDefinition& frmBomr();

}  // namespace payitems
