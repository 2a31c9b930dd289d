#include "Untsayer.h"

#include "FrmSayer.h"
#include "MonthPage.h"

definition::DefinitionPage* _FrmSayer = nullptr;

namespace payitems {

const definition::PageDefinition& frmSayer() {
    static const definition::PageDefinition page =
        monthPage(forms::frmSayer(), "Karaneh", "Sayer", " مشخصات ساير مزايا  ");
    return page;
}

}  // namespace payitems
