#include "PageLayout.h"

namespace forms {

using widgets::ColumnKind;

QList<Component> pageComponents(const PageLayout& page) {
    return {
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
}

PageColumn codeColumn(const QString& title, int width, const QString& hint) {
    return {{.field = QStringLiteral("Code_field"),
             .title = title,
             .width = width,
             .kind = ColumnKind::Code,
             .readOnly = true},
            hint,
            {},
            {}};
}

PageColumn nameColumn(const QString& title, int width, const QString& hint) {
    return {{.field = QStringLiteral("Desk"), .title = title, .width = width, .kind = ColumnKind::Name},
            hint,
            {},
            {}};
}

PageColumn numberColumn(const QString& field, const QString& title, int width, const QString& hint) {
    return {{.field = field, .title = title, .width = width, .kind = ColumnKind::Number}, hint, {}, {}};
}

PageColumn markColumn(const QString& field, const QString& title, int width, const QString& hint,
                      const QString& detailList, const QString& detailCaption) {
    return {{.field = field, .title = title, .width = width, .kind = ColumnKind::Mark, .centred = true},
            hint,
            detailList,
            detailCaption};
}

}  // namespace forms
