// The base-information window: its caption bar, and the ten tabs with what each of them holds.
#pragma once

#include "FormLayout.h"

namespace forms {

struct SheetLayout {
    QString name;
    QString caption;
    QList<Component> components;
    QString panel;           // that the pages stand in; empty: on the sheet
    QString combo;           // empty on a tab without one
    QStringList comboItems;  // empty where the pages give theirs
    int comboIndex = -1;     // chosen at design; -1 for none
};

const FormLayout& sabtPage();
// In page order.
const QList<SheetLayout>& sabtSheets();

}  // namespace forms
