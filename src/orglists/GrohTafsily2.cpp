#include "GrohTafsily2.h"

#include "DatabaseHelpers.h"
#include "LevelPage.h"
#include "ModuleVariables.h"
#include "OrgForms.h"
#include "TextHelpers.h"

namespace orglists {
namespace {

const definition::PageDefinition& declaration() {
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
    };
    return page;
}

class GrohTafsily2Page : public LevelPage {
public:
    GrohTafsily2Page(BaseWindow& window, DefinitionPage** variable, QWidget* parent)
        : LevelPage(declaration(), window, variable, parent, QStringLiteral("PK_GrohTafsily2"),
                    QStringLiteral("کد گروه {L} تکراري مي باشد.")) {}

    void ValidateRow() override {
        LevelPage::ValidateRow();
        if (!isRenamed() || !InUse())
            return;
        const QPointer<GrohTafsily2Page> alive(this);
        showError(definition().messages.inUse);
        if (alive) {
            grid().setFocus();
            rows().cancel();
        }
        throw data::SilentAbort();
    }

protected:
    void CorrectRow() override {
        const QString typed = code().trimmed();
        if (!typed.isEmpty())
            rows().setValue(definition().fields.code, Pad_Left_Char(typed, u'0', codeWidth()));
    }

    bool InUse() override {
        const QString stored = storedCode();
        return !stored.isEmpty() &&
               Is_Depended(*_MyDatabase, QStringLiteral("sp_M_Depended_GrohTafsily2"), stored);
    }
};

}  // namespace

definition::DefinitionPage* grohTafsily2Form(BaseWindow& window, definition::DefinitionPage** variable,
                                             QWidget* parent) {
    return new GrohTafsily2Page(window, variable, parent);
}

}  // namespace orglists
