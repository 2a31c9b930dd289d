#include "FrmMoafiat.h"

namespace forms {

const FormLayout& frmMoafiat() {
    static const FormLayout layout = {
        QStringLiteral("TFrmMoafiat"),
        QStringLiteral("    معافيت مالياتي        "),
        {352, 330},
        {
            {Kind::CaptionBar,
             "Caption_Panel",
             {},
             Align::Top,
             {0, 0, 352, 24},
             "    معافيت مالياتي        ",
             {}},
            {Kind::Shape, "Close_Shape", "Caption_Panel", Align::None, {321, 1, 21, 21}, {}, {}},
            {Kind::CloseButton, "sb_Closed", "Caption_Panel", Align::None, {322, 2, 20, 20}, {}, "بستن فرم"},
            {Kind::Panel, "plMain", {}, Align::Bottom, {0, 0, 352, 92}, {}, {}},
            {Kind::RaisedPanel, "plFix", "plMain", Align::Top, {0, 0, 352, 60}, {}, {}},
            {Kind::Group, "gbMablagh", "plFix", Align::None, {218, 2, 128, 54}, "مبلغ", {}},
            {Kind::RadioButton, "rSabet", "gbMablagh", Align::None, {66, 24, 56, 22}, "ثابت", {}},
            {Kind::RadioButton, "rMotagher", "gbMablagh", Align::None, {6, 24, 58, 22}, "متغير", {}},
            {Kind::Label, "lbFix", "plFix", Align::None, {148, 20, 66, 22}, "مبلغ ثابت ", {}},
            {Kind::Edit, "FixEdit", "plFix", Align::None, {58, 18, 88, 24}, "0", {}},
            {Kind::CheckBox, "chSum", "plFix", Align::None, {4, 19, 52, 22}, "جمع", {}},
            {Kind::Panel, "plSabt", "plMain", Align::Bottom, {0, 0, 352, 32}, {}, {}},
            {Kind::Button, "OkBtn", "plSabt", Align::None, {262, 2, 80, 28}, "تاييد", {}},
            {Kind::Button, "CancelBtn", "plSabt", Align::None, {10, 2, 80, 28}, "انصراف", {}},
            {Kind::Grid, "DBGrid2", {}, Align::Client, {}, {}, {}},
        }};
    return layout;
}

QList<widgets::GridColumn> frmMoafiatColumns() {
    return {{.field = "Desk", .title = "شرح ", .width = 225, .kind = widgets::ColumnKind::Name},
            {.field = "Fieldlen",
             .title = "درصد",
             .width = 84,
             .kind = widgets::ColumnKind::Number,
             .displayFormat = "##0.##"}};
}

}  // namespace forms
