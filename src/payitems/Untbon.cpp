#include "Untbon.h"

#include "FrmBon.h"
#include "MonthPage.h"

definition::DefinitionPage* _FrmBon = nullptr;

namespace payitems {

const definition::PageDefinition& frmBon() {
    static const definition::PageDefinition page = [] {
        auto definition = monthPage(forms::frmBon(), "Paybon", "BimehOmr", " مشخصات بن خواربار ");
        definition.fields.code = "Code_Field";
        return definition;
    }();
    return page;
}

}  // namespace payitems
