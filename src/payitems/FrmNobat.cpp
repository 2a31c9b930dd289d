#include "FrmNobat.h"

#include "CoefficientPage.h"
#include "PayForms.h"

namespace payitems {

const definition::PageDefinition& frmNobat() {
    static const definition::PageDefinition page =
        coefficientPage(forms::frmNobat(), "Nobatkari", "Nobatkari", " مشخصات نوبت کاري ");
    return page;
}

}  // namespace payitems
