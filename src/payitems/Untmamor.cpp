#include "Untmamor.h"

#include "CoefficientPage.h"
#include "FrmMamor.h"

definition::DefinitionPage* _FrmMamor = nullptr;

namespace payitems {

const definition::PageDefinition& frmMamor() {
    static const definition::PageDefinition page =
        coefficientPage(forms::frmMamor(), "Mamorit", "Mamorit", " مشخصات ماموريت  ");
    return page;
}

}  // namespace payitems
