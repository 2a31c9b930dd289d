#include "PageCatalogue.h"

#include <QMap>

#include "Formunit.h"
#include "Grohtafsily2unit.h"
#include "Marakezunit.h"
#include "Untbank.h"
#include "Untbimeh.h"
#include "Untbomr.h"
#include "Untbon.h"
#include "Untedari.h"
#include "Untezafeh.h"
#include "Untgheybat.h"
#include "Untkharid.h"
#include "Untkhedmat.h"
#include "Untmaliyat.h"
#include "Untmamor.h"
#include "Untnobat.h"
#include "Untpadash.h"
#include "Untpaykar.h"
#include "Untsayer.h"
#include "Unttax.h"
#include "Untvam.h"

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

}  // namespace

const QList<PagePlace>& pageCatalogue() {
    using namespace payitems;
    using namespace taxins;
    using namespace orglists;
    static const QList<PagePlace> pages = {
        {"ts_Payment", -1, "", "", &_Formpay, formpay},
        {"ts_NoPay", -1, "", "", &_FrmPaykar, frmPaykar},
        {"ts_Malyat", -1, "", "", &_FrmTax, frmTax},
        {"ts_Bank", -1, "", "", &_FrmBank, frmBank},
        {"ts_Bimeh", -1, "", "", &_Frmbimeh, frmbimeh},
        {"ts_Vam", -1, "", "", &_FrmVam, frmVam},
        {"ts_Mul", 0, "اضافه کاري", "J_B_ACT_AZAFEHKARI(Y)", &_FrmEzaf, frmEzaf},
        {"ts_Mul", 1, "نوبت کاري", "J_B_NOBATKARI(Y)", &_FrmNobat, frmNobat},
        {"ts_Mul", 2, "غيبت", "J_B_GEYBAT(Y)", &_FrmGheybat, frmGheybat},
        {"ts_Mul", 3, "پاداش", "J_B_PADASH(Y)", &_FrmPadash, frmPadash},
        {"ts_Mul", 4, "ماموريت", "J_B_MAMOREYAT(Y)", &_FrmMamor, frmMamor},
        {"ts_Mul", 6, "خريد مرخصي", "J_B_BUYMORAKHASE(Y)", &_FrmKharid, frmKharid},
        {"ts_Mul", 5, "خريد خدمت", "J_B_BUYKHEDMAT(Y)", &_FrmKhedmat, frmKhedmat},
        {"ts_Mul", 7, "بيمه عمر", "J_B_BIMEHOMR(Y)", &_FrmBomr, frmBomr},
        {"ts_Mul", 8, "بن و خواربار", "J_B_BON(Y)", &_FrmBon, frmBon},
        {"ts_Mul", 9, "کارانه", "J_B_KARANEH(Y)", &_FrmSayer, frmSayer},
        {"ts_Marakez", 1, "مراکز هزينه", "J_B_TT2_T(Y)", &_MarakezForm, marakezForm},
        {"ts_Edari", -1, "", "", &_FrmEdari, frmEdari},
        {"ts_Marakez", 0, "گروه مراکز هزينه", "J_B_TT2_G(Y)", &_GrohTafsily2Form, grohTafsily2Form},
        {"ts_MaliyatInfo", -1, "", "", &_FrmMaliyat, frmMaliyat},
    };
    return pages;
}

QStringList comboItems(const QString& sheet) {
    QMap<int, QString> items;
    for (const PagePlace& place : pageCatalogue())
        if (place.item >= 0 && sheet == QLatin1String(place.sheet))
            items.insert(place.item, QString::fromUtf8(place.itemText));
    return items.values();
}

bool sheetEnabled(const QString& sheet, const QString& rights) {
    for (const SheetRight& right : kSheetRights)
        if (sheet == QLatin1String(right.sheet))
            return rights.contains(QLatin1String(right.text)) != right.negated;
    return false;
}

}  // namespace shell
