#include "FrmEdari.h"

namespace forms {

const PageLayout& frmEdari() {
    static const PageLayout layout = {"TFrmEdari",
                                      "فرم اطلاعات اداري",
                                      "DBGrid1",
                                      "BitBtn1",
                                      "تاييد",
                                      {
                                          codeColumn("کد", 25, " کد را وارد کنيد"),
                                          // Titled with the chosen list.
                                          nameColumn("نام ", 725, " شرح را وارد کنيد "),
                                      }};
    return layout;
}

const QList<PageColumn>& sematColumns() {
    static const QList<PageColumn> columns = {
        textColumn("JobCode", "کد شغل ", kDefaultWidth, {}),
        markColumn("IsHard", "سخت-زيان آور", 80, {}),
    };
    return columns;
}

}  // namespace forms
