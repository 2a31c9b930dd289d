// The tax exemption editor.
#pragma once

#include "DataGrid.h"
#include "FormLayout.h"

namespace forms {

const FormLayout& frmMoafiat();
QList<widgets::GridColumn> frmMoafiatColumns();

}  // namespace forms
