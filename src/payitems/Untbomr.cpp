#include "Untbomr.h"

#include "CoefficientPage.h"
#include "FrmBomr.h"

definition::DefinitionPage* _FrmBomr = nullptr;

namespace payitems {

const definition::PageDefinition& frmBomr() {
    static const definition::PageDefinition page = [] {
        auto definition = coefficientPage(forms::frmBomr(), "Payomr", "BimehOmr", " مشخصات بيمه عمر");
        definition.fields.code = "Code_Field";
        return definition;
    }();
    return page;
}

}  // namespace payitems
