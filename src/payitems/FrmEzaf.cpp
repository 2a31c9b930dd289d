#include "FrmEzaf.h"

#include "CoefficientPage.h"
#include "PayForms.h"

namespace payitems {

const definition::PageDefinition& frmEzaf() {
    static const definition::PageDefinition page =
        coefficientPage(forms::frmEzaf(), "ezafehkar", "Edari", " مشخصات اضافه کاري ");
    return page;
}

}  // namespace payitems
