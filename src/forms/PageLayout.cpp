#include "PageLayout.h"

namespace forms {

using widgets::ColumnKind;

QList<Component> pageComponents(const PageLayout& page) {
    QList<Component> components = {
        {Kind::Panel, QStringLiteral("plBottom"), {}, Align::Bottom, {0, 0, 400, 32}, {}, {}},
        {Kind::Panel,
         QStringLiteral("Panel1"),
         QStringLiteral("plBottom"),
         Align::Left,
         {0, 0, 116, 32},
         {},
         {}},
        {Kind::Button,
         page.confirmName,
         QStringLiteral("Panel1"),
         Align::None,
         {18, 2, 80, 28},
         page.confirmCaption,
         {}},
        {Kind::LoweredPanel,
         QStringLiteral("plStatus"),
         QStringLiteral("plBottom"),
         Align::Client,
         {},
         {},
         {}},
        {Kind::Grid, page.gridName, {}, Align::Client, {}, {}, {}},
    };
    return components + page.more;
}

PageColumn codeColumn(const QString& title, int width, const QString& hint) {
    return {.grid = {.field = QStringLiteral("Code_field"),
                     .title = title,
                     .width = width,
                     .kind = ColumnKind::Code,
                     .readOnly = true},
            .hint = hint};
}

PageColumn nameColumn(const QString& title, int width, const QString& hint) {
    return {
        .grid = {.field = QStringLiteral("Desk"), .title = title, .width = width, .kind = ColumnKind::Name},
        .hint = hint};
}

PageColumn numberColumn(const QString& field, const QString& title, int width, const QString& hint) {
    return {.grid = {.field = field, .title = title, .width = width, .kind = ColumnKind::Number},
            .hint = hint};
}

PageColumn textColumn(const QString& field, const QString& title, int width, const QString& hint) {
    return {.grid = {.field = field, .title = title, .width = width}, .hint = hint};
}

PageColumn cycleColumn(const QString& field, const QString& title, int width, const QStringList& values,
                       const QString& hint) {
    return {.grid = {.field = field, .title = title, .width = width, .kind = ColumnKind::Cycle},
            .hint = hint,
            .cycle = values};
}

PageColumn markColumn(const QString& field, const QString& title, int width, const QString& hint,
                      const QString& detailList, const QString& detailCaption) {
    return {
        .grid = {.field = field, .title = title, .width = width, .kind = ColumnKind::Mark, .centred = true},
        .hint = hint,
        .detailList = detailList,
        .detailCaption = detailCaption};
}

PageColumn readOnly(PageColumn column) {
    column.grid.readOnly = true;
    return column;
}

PageColumn centred(PageColumn column) {
    column.grid.centred = true;
    return column;
}

PageColumn untotalled(PageColumn column) {
    column.grid.totalled = false;
    return column;
}

PageColumn refusing(const QString& words, PageColumn column) {
    column.grid.refusal = words;
    return column;
}

}  // namespace forms
