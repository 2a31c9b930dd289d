#include "Untezafeh.h"

#include "CoefficientPage.h"
#include "FrmEzaf.h"

definition::DefinitionPage* _FrmEzaf = nullptr;

namespace payitems {

const definition::PageDefinition& frmEzaf() {
    static const definition::PageDefinition page =
        coefficientPage(forms::frmEzaf(), "ezafehkar", "Edari", " مشخصات اضافه کاري ");
    return page;
}

}  // namespace payitems
