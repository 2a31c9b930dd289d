#include "Untnobat.h"

#include "CoefficientPage.h"
#include "FrmNobat.h"

definition::DefinitionPage* _FrmNobat = nullptr;

namespace payitems {

const definition::PageDefinition& frmNobat() {
    static const definition::PageDefinition page =
        coefficientPage(forms::frmNobat(), "Nobatkari", "Nobatkari", " مشخصات نوبت کاري ");
    return page;
}

}  // namespace payitems
