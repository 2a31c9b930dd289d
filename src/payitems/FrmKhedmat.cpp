#include "FrmKhedmat.h"

#include "PayForms.h"
#include "PurchasePage.h"

namespace payitems {

const definition::PageDefinition& frmKhedmat() {
    static const definition::PageDefinition page =
        purchasePage(forms::frmKhedmat(), "paysal", "Khedmat", " مشخصات خريد خدمت  ");
    return page;
}

}  // namespace payitems
