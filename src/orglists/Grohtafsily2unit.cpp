#include "Grohtafsily2unit.h"

#include "DatabaseHelpers.h"
#include "GrohTafsily2Form.h"
#include "LevelPage.h"
#include "TextHelpers.h"

definition::DefinitionPage* _GrohTafsily2Form = nullptr;

namespace orglists {
namespace {

class TGrohTafsily2Form : public LevelPage {
public:
    TGrohTafsily2Form(const definition::PageDefinition& definition, BaseWindow& window,
                      DefinitionPage** variable, QWidget* parent)
        : LevelPage(definition, window, variable, parent, QStringLiteral("PK_GrohTafsily2"),
                    QStringLiteral("کد گروه {L} تکراري مي باشد.")) {}

    void ValidateRow() override {
        LevelPage::ValidateRow();
        if (!isRenamed() || !isInUse())
            return;
        showError(definition().messages.inUse);
        grid().setFocus();
        rows().cancel();
        throw data::SilentAbort();
    }

protected:
    void correctRow() override {
        const QString typed = code().trimmed();
        if (!typed.isEmpty())
            rows().setValue(definition().fields.code, Pad_Left_Char(typed, u'0', codeWidth()));
    }

    bool isInUse() override {
        const QString stored = storedCode();
        return !stored.isEmpty() && Is_Depended(db(), QStringLiteral("sp_M_Depended_GrohTafsily2"), stored);
    }
};

}  // namespace

const definition::PageDefinition& grohTafsily2Form() {
    static const definition::PageDefinition page = {
        .layout = &forms::grohTafsily2Form(),
        .kind = definition::PageKind::Direct,
        .table = QStringLiteral("GrohTafsily2"),
        .fields = {.code = QStringLiteral("Tafsily2GrohCod"), .name = QStringLiteral("Tafsily2GrohNam")},
        .deletion = definition::Deletion::LeavesCodes,
        .messages = {.emptyCode = QStringLiteral("کد گروه {L} وارد نشده است"),
                     .emptyName = QStringLiteral("نام گروه {L} وارد نشده است"),
                     .repeatedName = QStringLiteral("نام گروه {L} تکراري است"),
                     .inUse = QStringLiteral("ركورد گردش دارد."),
                     .deleteQuestion = QStringLiteral("آيا مطمئن هستيد"),
                     .deleteQuestionCode = QStringLiteral("3QR")},
        .pageKey = QStringLiteral("GrohTafsily2"),
        .reportTitle = QStringLiteral("معرفي گروههاي {L}"),
        .make = definition::made<TGrohTafsily2Form>,
    };
    return page;
}

}  // namespace orglists
