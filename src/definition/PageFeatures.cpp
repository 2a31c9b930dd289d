#include "PageFeatures.h"

#include "CarryRows.h"
#include "ConfirmPreview.h"
#include "DefinitionPage.h"
#include "Errors.h"
#include "Malyobjectunit.h"
#include "MenuIcons.h"
#include "RowUsage.h"
#include "TaxCheck.h"

namespace definition {
namespace {

bool hasWorkCopy(const DefinitionPage& page) {
    return page.definition().kind == PageKind::WorkCopy;
}

bool always(DefinitionPage&) {
    return true;
}

bool hasRow(DefinitionPage& page) {
    return !page.rows().isEmpty();
}

// --- the detail list of a mark ----------------------------------------------------------------------

bool hasDetailLists(const DefinitionPage& page) {
    const QList<forms::PageColumn>& columns = page.columns();
    return std::any_of(columns.begin(), columns.end(),
                       [](const forms::PageColumn& column) { return !column.detailList.isEmpty(); });
}

bool standsOnDetailList(DefinitionPage& page) {
    return hasRow(page) && !page.columns().value(page.grid().selectedColumn()).detailList.isEmpty();
}

void correctDetailList(DefinitionPage& page) {
    const int column = page.grid().selectedColumn();
    const forms::PageColumn mark = page.columns()[column];
    if (!page.marks().isMarked(mark.grid.field))
        return page.marks().press(column);
    if (!page.editDetailList(mark))
        page.marks().toggle(column);
}

}  // namespace

const QList<PageFeature>& pageFeatures() {
    static const QList<PageFeature> features = {
        {.caption = QStringLiteral("پيش نمايش تاييد"),
         .image = kImagePreview,
         .key = Qt::CTRL | Qt::Key_K,
         .isOffered = hasWorkCopy,
         .canRun = always,
         .run = previewConfirm},
        {.caption = QStringLiteral("آوردن رديف هاي ماه قبل"),
         .image = kImageCarry,
         .key = Qt::CTRL | Qt::Key_M,
         .isOffered = hasWorkCopy,
         .canRun = always,
         .run = carryRows},
        {.caption = QStringLiteral("موارد استفاده"),
         .image = kImageUsage,
         .key = Qt::CTRL | Qt::Key_U,
         .isOffered = hasUsage,
         .canRun = hasRow,
         .run = showUsage},
        {.caption = QStringLiteral("بررسي جدول ماليات"),
         .image = kImageTaxCheck,
         .key = Qt::CTRL | Qt::Key_T,
         .isOffered = hasBrackets,
         .canRun = hasRow,
         .run = checkTaxTable,
         .advice = taxAdvice},
        {.caption = QStringLiteral("ويرايش جزييات"),
         .image = kImageDetail,
         .key = Qt::SHIFT | Qt::Key_F2,
         .isOffered = hasDetailLists,
         .canRun = standsOnDetailList,
         .run = correctDetailList,
         .sharesKey = true},
    };
    return features;
}

void addFeatures(DefinitionPage& page) {
    QMenu& menu = *page.grid().popupMenu();
    if (menu.isEmpty())
        return;
    menu.addSeparator();
    if (hasWorkCopy(page))
        page.history().addEntries(menu);
    for (const PageFeature& feature : pageFeatures()) {
        if (!feature.isOffered(page))
            continue;
        QAction* entry =
            TMalyObject::Add_Item(menu, feature.caption, feature.image, feature.key, [&page, &feature] {
                page.grid().commitCell();
                feature.run(page);
                page.history().note();
            });
        entry->setEnabled(feature.canRun(page));
        entry->setProperty(widgets::kSharesKey, feature.sharesKey);
    }
}

void adviseOnRows(DefinitionPage& page) {
    for (const PageFeature& feature : pageFeatures()) {
        if (!feature.advice || !feature.isOffered(page))
            continue;
        try {
            if (const QString advice = feature.advice(page); !advice.isEmpty())
                return page.advise(advice, [&page, &feature] { feature.run(page); });
        } catch (const data::TextException&) {
            // Rows that cannot be read now are not spoken of.
        }
    }
    page.advise({});
}

}  // namespace definition
