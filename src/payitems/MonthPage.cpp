#include "MonthPage.h"

namespace payitems {

definition::PageDefinition monthPage(const forms::PageLayout& layout, const QString& table,
                                     const QString& pageKey, const QString& reportTitle) {
    return {.layout = &layout,
            .kind = definition::PageKind::Direct,
            .table = table,
            .monthRows = true,
            .messages = {.emptyCode = QStringLiteral(" کد خالي مي باشد"),
                         .emptyName = QStringLiteral(" ستون شرح خالي مي باشد"),
                         .repeatedName = QStringLiteral(" شرح تکراري مي باشد")},
            .pageKey = pageKey,
            .reportTitle = reportTitle};
}

}  // namespace payitems
