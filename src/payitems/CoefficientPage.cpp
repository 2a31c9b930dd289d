#include "CoefficientPage.h"

namespace payitems {
namespace {

constexpr int kMaxRows = 19;

}  // namespace

definition::PageDefinition coefficientPage(const forms::PageLayout& layout, const QString& table,
                                           const QString& pageKey, const QString& reportTitle) {
    return {.layout = &layout,
            .table = table,
            .maxRows = kMaxRows,
            .messages = {.emptyName = QStringLiteral("شرح خالي مي باشد"),
                         .repeatedName = QStringLiteral(" شرح تکراري مي باشد"),
                         .inUse = QStringLiteral(" گردش دارد ")},
            .itemMarks = true,
            .pageKey = pageKey,
            .reportTitle = reportTitle};
}

}  // namespace payitems
