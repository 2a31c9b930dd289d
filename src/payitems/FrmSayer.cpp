#include "FrmSayer.h"

#include "MonthPage.h"
#include "PayForms.h"

namespace payitems {

const definition::PageDefinition& frmSayer() {
    static const definition::PageDefinition page =
        monthPage(forms::frmSayer(), "Karaneh", "Sayer", " مشخصات ساير مزايا  ");
    return page;
}

}  // namespace payitems
