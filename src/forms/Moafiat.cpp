#include "Moafiat.h"

namespace forms {

const FormLayout& moafiat() {
    static const FormLayout layout = {
        QStringLiteral("TFrmMoafiat"),
        QStringLiteral("    معافيت مالياتي        "),
        {380, 330},
        {
            {Kind::CaptionBar,
             "Caption_Panel",
             {},
             Align::Top,
             {0, 0, 380, 24},
             "    معافيت مالياتي        ",
             {}},
            {Kind::Shape, "Close_Shape", "Caption_Panel", Align::None, {349, 1, 21, 21}, {}, {}},
            {Kind::CloseButton, "sb_Closed", "Caption_Panel", Align::None, {350, 2, 20, 20}, {}, "بستن فرم"},
            {Kind::Panel, "plMain", {}, Align::Bottom, {0, 0, 380, 92}, {}, {}},
            {Kind::RaisedPanel, "plFix", "plMain", Align::Top, {0, 0, 380, 60}, {}, {}},
            {Kind::Group, "gbMablagh", "plFix", Align::None, {246, 2, 128, 54}, "مبلغ", {}},
            {Kind::RadioButton, "rSabet", "gbMablagh", Align::None, {66, 24, 56, 22}, "ثابت", {}},
            {Kind::RadioButton, "rMotagher", "gbMablagh", Align::None, {6, 24, 58, 22}, "متغير", {}},
            {Kind::Label, "lbFix", "plFix", Align::None, {172, 20, 68, 22}, "مبلغ ثابت ", {}},
            {Kind::Edit, "FixEdit", "plFix", Align::None, {68, 18, 100, 24}, "0", {}},
            {Kind::CheckBox, "chSum", "plFix", Align::None, {8, 19, 54, 22}, "جمع", {}},
            {Kind::Panel, "plSabt", "plMain", Align::Bottom, {0, 0, 380, 32}, {}, {}},
            {Kind::Button, "OkBtn", "plSabt", Align::None, {290, 2, 80, 28}, "تاييد", {}},
            {Kind::Button, "CancelBtn", "plSabt", Align::None, {10, 2, 80, 28}, "انصراف", {}},
            {Kind::Grid, "DBGrid2", {}, Align::Client, {}, {}, {}},
        }};
    return layout;
}

QList<widgets::GridColumn> moafiatColumns() {
    return {{.field = "Desk", .title = "شرح ", .width = 225, .kind = widgets::ColumnKind::Name},
            {.field = "Fieldlen",
             .title = "درصد",
             .width = 84,
             .kind = widgets::ColumnKind::Number,
             .displayFormat = "##0.##"}};
}

}  // namespace forms
