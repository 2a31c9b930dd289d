// What the pages of variable pay hold, each in the file of its name.
#pragma once

#include "PageLayout.h"

namespace forms {

const PageLayout& frmPaykar();
const PageLayout& frmEzaf();
const PageLayout& frmNobat();
const PageLayout& frmGheybat();
const PageLayout& frmPadash();
const PageLayout& frmMamor();
const PageLayout& frmKhedmat();
const PageLayout& frmKharid();
const PageLayout& frmBomr();
const PageLayout& frmBon();
const PageLayout& frmSayer();

}  // namespace forms
