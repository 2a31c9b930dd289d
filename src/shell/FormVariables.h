// One exported variable for each page form, null while the page does not exist.
#pragma once

#include "DefinitionPage.h"
#include "Selunit.h"
#include "Untmoafait.h"

extern "C" {
extern definition::DefinitionPage *_Formpay, *_FrmPaykar, *_FrmVam, *_Frmbimeh, *_FrmTax, *_FrmEzaf,
    *_FrmNobat, *_FrmPadash, *_FrmGheybat, *_FrmMamor, *_FrmBomr, *_FrmKharid, *_FrmKhedmat, *_FrmBon,
    *_FrmSayer, *_MarakezForm, *_FrmEdari, *_FrmBank, *_GrohTafsily2Form, *_FrmMaliyat;
extern widgets::Form *_FrmDefBimDisk, *_FrmDefMalyDisk, *_FrmDefine, *_GrafForm, *_GrafColSetForm;
}
