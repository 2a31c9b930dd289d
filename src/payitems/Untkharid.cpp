#include "Untkharid.h"

#include "FrmKharid.h"
#include "PurchasePage.h"

definition::DefinitionPage* _FrmKharid = nullptr;

namespace payitems {

const definition::PageDefinition& frmKharid() {
    static const definition::PageDefinition page =
        purchasePage(forms::frmKharid(), "holiday", "Kharid", " مشخصات خريد مرخصي ");
    return page;
}

}  // namespace payitems
