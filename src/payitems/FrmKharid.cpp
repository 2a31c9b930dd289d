#include "FrmKharid.h"

#include "PayForms.h"
#include "PurchasePage.h"

namespace payitems {

const definition::PageDefinition& frmKharid() {
    static const definition::PageDefinition page =
        purchasePage(forms::frmKharid(), "holiday", "Kharid", " مشخصات خريد مرخصي ");
    return page;
}

}  // namespace payitems
