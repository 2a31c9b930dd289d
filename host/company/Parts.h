// Where a program of the suite finds what belongs to it: as it was built, or as it is installed.
#pragma once

#include <QString>

namespace host {

// The file or folder of that name among the program's parts: "libPaymentKorvanta.so", "DLLS/SharedForms",
// "Help", "schema". Where it would lie beside the program if there is none.
QString partOf(const QString& name);

}  // namespace host
