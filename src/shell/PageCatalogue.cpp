#include "PageCatalogue.h"

#include "Bimehunit.h"
#include "Formunit.h"
#include "FrmBank.h"
#include "FrmBomr.h"
#include "FrmBon.h"
#include "FrmEdari.h"
#include "FrmEzaf.h"
#include "FrmGheybat.h"
#include "FrmKharid.h"
#include "FrmKhedmat.h"
#include "FrmMamor.h"
#include "FrmNobat.h"
#include "FrmPadash.h"
#include "FrmPaykar.h"
#include "FrmSayer.h"
#include "FrmVam.h"
#include "GrohTafsily2.h"
#include "Maliyatunit.h"
#include "Marakez.h"
#include "PurchasePage.h"
#include "Taxunit.h"

extern "C" {
definition::DefinitionPage *_Formpay = nullptr, *_FrmPaykar = nullptr, *_FrmVam = nullptr,
                           *_Frmbimeh = nullptr, *_FrmTax = nullptr, *_FrmEzaf = nullptr,
                           *_FrmNobat = nullptr, *_FrmPadash = nullptr, *_FrmGheybat = nullptr,
                           *_FrmMamor = nullptr, *_FrmBomr = nullptr, *_FrmKharid = nullptr,
                           *_FrmKhedmat = nullptr, *_FrmBon = nullptr, *_FrmSayer = nullptr,
                           *_MarakezForm = nullptr, *_FrmEdari = nullptr, *_FrmBank = nullptr,
                           *_GrohTafsily2Form = nullptr, *_FrmMaliyat = nullptr;
widgets::Form *_FrmDefBimDisk = nullptr, *_FrmDefMalyDisk = nullptr, *_FrmDefine = nullptr,
              *_GrafForm = nullptr, *_GrafColSetForm = nullptr;
}

namespace shell {
namespace {

// A sheet is enabled when the rights text holds this, or (negated) as long as it does not.
struct SheetRight {
    const char* sheet;
    const char* text;
    bool negated;
};

constexpr SheetRight kSheetRights[] = {
    {"ts_Payment", "J_B_FIXPAY(Y)", false},
    {"ts_NoPay", "J_B_NOFIXPAY(Y)", false},
    {"ts_Marakez", "J_B_TT2_G(N),J_B_TT2_T(N)", true},
    {"ts_Malyat", "J_B_MALEYAT(Y)", false},
    {"ts_Bimeh", "J_B_BIMEH(Y)", false},
    {"ts_Bank", "J_B_BANK(Y)", false},
    {"ts_Vam", "J_B_VAM(Y)", false},
    {"ts_Mul",
     "J_B_ACT_AZAFEHKARI(N),J_B_NOBATKARI(N),J_B_GEYBAT(N),J_B_PADASH(N),J_B_MAMOREYAT(N),"
     "J_B_BUYKHEDMAT(N),J_B_BUYMORAKHASE(N),J_B_BIMEHOMR(N),J_B_BON(N),J_B_KARANEH(N)",
     true},
    {"ts_Edari", "J_B_ADAREINFO(Y)", false},
    {"ts_MaliyatInfo", "J_B_ADAREINFO(Y)", false},
};

using definition::DefinitionPage;

// A page of that declaration; of a class of its own where the declaration does not say all.
template <const definition::PageDefinition& (*declaration)(), class Page = DefinitionPage>
DefinitionPage* declared(BaseWindow& window, DefinitionPage** variable, QWidget* parent) {
    return new Page(declaration(), window, variable, parent);
}

}  // namespace

const QList<PagePlace>& pageCatalogue() {
    static const QList<PagePlace> pages = {
        {"ts_Payment", "", "", -1, "", &_Formpay, declared<payitems::formpay>},
        {"ts_NoPay", "", "", -1, "", &_FrmPaykar, declared<payitems::frmPaykar, payitems::TFrmPaykar>},
        {"ts_Malyat", "", "", -1, "", &_FrmTax, taxins::frmTax},
        {"ts_Bimeh", "", "", -1, "", &_Frmbimeh, taxins::frmbimeh},
        {"ts_Bank", "", "", -1, "", &_FrmBank, orglists::frmBank},
        {"ts_Vam", "", "", -1, "", &_FrmVam, payitems::frmVam},
        {"ts_Mul", "plClient", "cmbZarayeb", 0, "J_B_ACT_AZAFEHKARI(Y)", &_FrmEzaf,
         declared<payitems::frmEzaf>},
        {"ts_Mul", "plClient", "cmbZarayeb", 1, "J_B_NOBATKARI(Y)", &_FrmNobat, declared<payitems::frmNobat>},
        {"ts_Mul", "plClient", "cmbZarayeb", 2, "J_B_GEYBAT(Y)", &_FrmGheybat,
         declared<payitems::frmGheybat>},
        {"ts_Mul", "plClient", "cmbZarayeb", 3, "J_B_PADASH(Y)", &_FrmPadash,
         declared<payitems::frmPadash, payitems::TFrmPadash>},
        {"ts_Mul", "plClient", "cmbZarayeb", 4, "J_B_MAMOREYAT(Y)", &_FrmMamor, declared<payitems::frmMamor>},
        {"ts_Mul", "plClient", "cmbZarayeb", 5, "J_B_BUYKHEDMAT(Y)", &_FrmKhedmat,
         declared<payitems::frmKhedmat, payitems::PurchasePage>},
        {"ts_Mul", "plClient", "cmbZarayeb", 6, "J_B_BUYMORAKHASE(Y)", &_FrmKharid,
         declared<payitems::frmKharid, payitems::PurchasePage>},
        {"ts_Mul", "plClient", "cmbZarayeb", 7, "J_B_BIMEHOMR(Y)", &_FrmBomr, declared<payitems::frmBomr>},
        {"ts_Mul", "plClient", "cmbZarayeb", 8, "J_B_BON(Y)", &_FrmBon, declared<payitems::frmBon>},
        {"ts_Mul", "plClient", "cmbZarayeb", 9, "J_B_KARANEH(Y)", &_FrmSayer, declared<payitems::frmSayer>},
        {"ts_Marakez", "plMarakez", "cmbMarakez", 0, "J_B_TT2_G(Y)", &_GrohTafsily2Form,
         orglists::grohTafsily2Form},
        {"ts_Marakez", "plMarakez", "cmbMarakez", 1, "J_B_TT2_T(Y)", &_MarakezForm, orglists::marakezForm},
        {"ts_Edari", "plEdari", "cmbEdari", -1, "", &_FrmEdari, orglists::frmEdari},
        {"ts_MaliyatInfo", "plMaliyatInfo", "cmbMaliyatinfo", -1, "", &_FrmMaliyat, taxins::frmMaliyat},
    };
    return pages;
}

const QList<definition::DefinitionPage**>& closingOrder() {
    static const QList<definition::DefinitionPage**> order = {
        &_Formpay,  &_FrmPaykar,  &_FrmTax,      &_FrmBank,  &_Frmbimeh,         &_FrmVam,     &_FrmEzaf,
        &_FrmNobat, &_FrmGheybat, &_FrmPadash,   &_FrmMamor, &_FrmKharid,        &_FrmKhedmat, &_FrmBomr,
        &_FrmBon,   &_FrmSayer,   &_MarakezForm, &_FrmEdari, &_GrohTafsily2Form, &_FrmMaliyat,
    };
    return order;
}

bool sheetEnabled(const QString& sheet, const QString& rights) {
    for (const SheetRight& right : kSheetRights)
        if (sheet == QLatin1String(right.sheet))
            return rights.contains(QLatin1String(right.text)) != right.negated;
    return false;
}

}  // namespace shell
