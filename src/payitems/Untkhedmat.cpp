#include "Untkhedmat.h"

#include "FrmKhedmat.h"
#include "PurchasePage.h"

definition::DefinitionPage* _FrmKhedmat = nullptr;

namespace payitems {

const definition::PageDefinition& frmKhedmat() {
    static const definition::PageDefinition page =
        purchasePage(forms::frmKhedmat(), "paysal", "Khedmat", " مشخصات خريد خدمت  ");
    return page;
}

}  // namespace payitems
