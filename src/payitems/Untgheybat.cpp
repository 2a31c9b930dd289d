#include "Untgheybat.h"

#include "CoefficientPage.h"
#include "FrmGheybat.h"

definition::DefinitionPage* _FrmGheybat = nullptr;

namespace payitems {

const definition::PageDefinition& frmGheybat() {
    static const definition::PageDefinition page = [] {
        auto definition = coefficientPage(forms::frmGheybat(), "Gheybat", "Gheybat", " مشخصات غيبت ");
        definition.required = {{"Gbase", "مبناي محاسبه روز/ساعت خالي مي باشد"}};
        return definition;
    }();
    return page;
}

}  // namespace payitems
