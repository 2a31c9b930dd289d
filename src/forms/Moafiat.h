// The tax exemption editor.
#pragma once

#include "DataGrid.h"
#include "FormLayout.h"

namespace forms {

const FormLayout& moafiat();
QList<widgets::GridColumn> moafiatColumns();

}  // namespace forms
