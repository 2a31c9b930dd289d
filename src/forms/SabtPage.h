// The base-information window: its caption bar, and the ten tabs with what each of them holds.
#pragma once

#include "FormLayout.h"

namespace forms {

struct SheetLayout {
    QString name;
    QString caption;
    QList<Component> components;
    QString combo;  // empty on a tab without one
    QStringList comboItems;
    int comboIndex = -1;  // chosen at design; -1 for none
};

const FormLayout& sabtPage();
// In page order.
const QList<SheetLayout>& sabtSheets();

}  // namespace forms
