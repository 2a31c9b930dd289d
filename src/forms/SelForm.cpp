#include "SelForm.h"

namespace forms {

const FormLayout& selForm() {
    static const QString title = QStringLiteral("         انتخاب مسير کپي فايلها");
    static const FormLayout layout = {
        QStringLiteral("TSelForm"),
        QStringLiteral("انتخاب فايل"),
        {365, 274},
        {
            {Kind::RaisedPanel, "Panel1", {}, Align::Client, {}, {}, {}},
            {Kind::CaptionBar, "Caption_Panel", "Panel1", Align::Top, {0, 0, 365, 22}, title, {}},
            {Kind::Shape, "Close_Shape", "Caption_Panel", Align::None, {334, 1, 20, 20}, {}, {}},
            {Kind::CloseButton, "sb_Closed", "Caption_Panel", Align::None, {334, 1, 20, 20}, {}, "بستن فرم"},
            {Kind::Panel, "Button_Panel", "Panel1", Align::Bottom, {0, 0, 365, 32}, {}, {}},
            {Kind::Button, "OkBitBtn", "Button_Panel", Align::None, {100, 2, 80, 27}, "تاييـد", {}},
            {Kind::Button, "CancelBitBtn", "Button_Panel", Align::None, {10, 2, 80, 27}, "انصراف", {}},
            {Kind::Panel, "pl_Client", "Panel1", Align::Client, {}, {}, {}},
            {Kind::Label, "Label1", "pl_Client", Align::None, {327, 6, 30, 24}, "مسير", {}},
            {Kind::Label, "Label2", "pl_Client", Align::None, {186, 34, 171, 20}, "دايرکتوري", {}},
            {Kind::Label, "Label3", "pl_Client", Align::None, {8, 34, 160, 20}, "پرونده", {}},
            {Kind::Label, "Label4", "pl_Client", Align::None, {122, 6, 46, 24}, "نام فايل", {}},
            {Kind::Combo, "DriveComboBox1", "pl_Client", Align::None, {186, 6, 137, 24}, {}, {}},
            {Kind::Tree, "DirectoryListBox1", "pl_Client", Align::None, {186, 56, 171, 156}, {}, {}},
            {Kind::List, "FileListBox1", "pl_Client", Align::None, {8, 56, 160, 156}, {}, {}},
            {Kind::Edit, "FlopyEdit", "pl_Client", Align::None, {8, 6, 113, 24}, {}, {}},
        }};
    return layout;
}

}  // namespace forms
