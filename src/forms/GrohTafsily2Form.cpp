#include "GrohTafsily2Form.h"

namespace forms {

const PageLayout& grohTafsily2Form() {
    static const PageLayout layout = {
        "TGrohTafsily2Form",
        "معرفي گروههاي تفصيلي 2",
        "DBGrid1",
        "BitBtn1",
        "تاييد",
        {
            textColumn("Tafsily2GrohCod", "کد", 40, "کد گروه {L} وارد گردد"),
            textColumn("Tafsily2GrohNam", "نام گروه {L}", 710, "نام گروه {L} وارد گردد"),
        }};
    return layout;
}

}  // namespace forms
