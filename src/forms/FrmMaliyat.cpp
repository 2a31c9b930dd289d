#include "FrmMaliyat.h"

namespace forms {

const PageLayout& frmMaliyat() {
    static const PageLayout layout = {QStringLiteral("TFrmMaliyat"),
                                      QStringLiteral("فرم اطلاعات مالياتي"),
                                      QStringLiteral("DBGrid1"),
                                      QStringLiteral("BitBtn1"),
                                      QStringLiteral("تاييد"),
                                      {untotalled(numberColumn("Code_Field", "کد", 25, " کد را وارد کنيد"))}};
    return layout;
}

PageColumn taxListTitle(const QString& title, const QString& hint) {
    return nameColumn(title, 730, hint);
}

}  // namespace forms
