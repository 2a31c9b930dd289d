#include "FrmMamor.h"

#include "CoefficientPage.h"
#include "PayForms.h"

namespace payitems {

const definition::PageDefinition& frmMamor() {
    static const definition::PageDefinition page =
        coefficientPage(forms::frmMamor(), "Mamorit", "Mamorit", " مشخصات ماموريت  ");
    return page;
}

}  // namespace payitems
