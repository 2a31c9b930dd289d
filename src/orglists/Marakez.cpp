#include "Marakez.h"

#include "CentreNumbering.h"
#include "CentreReferences.h"
#include "CodePage.h"
#include "DatabaseHelpers.h"
#include "EntryKeys.h"
#include "FormLook.h"
#include "LevelPage.h"
#include "Malyobjectunit.h"
#include "ModuleVariables.h"
#include "OrgForms.h"
#include "PeopleCodes.h"
#include "Query.h"
#include "TextHelpers.h"
#include "Untfmsg.h"
#include "UserRights.h"

namespace orglists {
namespace {

constexpr int kCode = 0;       // the code's column in the grid
constexpr int kTitleRoom = 8;  // pixels beside the code's title

const definition::PageDefinition& declaration() {
    static const definition::PageDefinition page = {
        .layout = &forms::marakezForm(),
        .kind = definition::PageKind::Direct,
        .table = QStringLiteral("Tafsily2"),
        .fields = {.code = QStringLiteral("Tafsily2"), .name = QStringLiteral("NamHesab")},
        .deletion = definition::Deletion::LeavesCodes,
        .messages = {.emptyCode = QStringLiteral("كد مركز هزينه وارد نشده است."),
                     .emptyName = QStringLiteral("نام مركز هزينه وارد نشده است."),
                     .repeatedName = QStringLiteral(" شرح تکراري مي باشد"),
                     .inUse = QStringLiteral(" گردش دارد")},
        .upgrades = {QStringLiteral(" Alter table tafsily2 alter column station varchar(14) ")},
        .pageKey = QStringLiteral("Tafsily2"),
        .reportTitle = QStringLiteral("معرفي {L}"),
    };
    return page;
}

class MarakezPage : public LevelPage {
public:
    MarakezPage(BaseWindow& window, DefinitionPage** variable, QWidget* parent)
        : LevelPage(declaration(), window, variable, parent, QStringLiteral("PK_Tafsily2"),
                    QStringLiteral("كد مركز هزينه تكراري مي باشد.")) {
        grid().admits = [this](int column, QChar character) {
            return column != kCode || Is_Key_Allowed(m_codeKind, data::foldDigits(character).front());
        };
        grid().onTitleClick = [this](int column) { sortBy(column); };
        rows().duringPost = [this] { keepCentreRights(storedCode(), code()); };
    }

    bool GridKeys(QKeyEvent& key) override {
        if (rows().active() && definition::isEnter(key) && grid().selectedColumn() == kCode && !chooseGroup())
            return true;
        return LevelPage::GridKeys(key);
    }

    void ValidateRow() override {
        LevelPage::ValidateRow();
        rows().setValue(QStringLiteral("Recogname"), QStringLiteral("بد"));
        rows().setValue(QStringLiteral("IsActive"), QStringLiteral("فعال"));
        rows().setValue(QStringLiteral("IsPosHesab"), QStringLiteral("منفي"));
    }

    void DeleteRow() override {
        const definition::PageMessages& messages = definition().messages;
        if (rows().isEmpty() ||
            Show_Msg(messages.deleteQuestion, QString(), messages.deleteQuestionCode) != widgets::mrYes)
            return;
        if (InUse()) {
            showError(messages.inUse);
            return;
        }
        deleteAndRenumber();
    }

protected:
    void readOptions() override {
        LevelPage::readOptions();
        m_codeKind = options().contains(QLatin1String("TypeSarFaslCod=NUM")) ? QStringLiteral("NUM")
                                                                             : QStringLiteral("CHR");
        data::Query query(_MyDatabase->Connection);
        query.setSql(QStringLiteral("Select COL_LENGTH('GrohTafsily2', 'Tafsily2GrohCod') As GrohCodLen "));
        query.open();
        m_groupWidth = static_cast<int>(query.integer(QStringLiteral("GrohCodLen")));
        m_linked = linkedField();
    }

    QList<forms::PageColumn> GridColumns() override {
        QList<forms::PageColumn> columns = LevelPage::GridColumns();
        columns[kCode].grid.width = grid().fontMetrics().horizontalAdvance(levelName()) + kTitleRoom;
        return columns;
    }

    // The number that the page has given, unless another operator has stored it meanwhile.
    void NumberStoredRow() override {
        if (!m_given.isEmpty() && code() == m_given && code() != storedCode() &&
            findsRow("Select * From Tafsily2 With (TabLockX) Where Tafsily2=" + data::quoted(m_given)))
            rows().setValue(definition().fields.code,
                            nextCentreCode(*_MyDatabase->Connection, m_group, codeWidth()));
    }

    void RememberLeftRow() override {
        LevelPage::RememberLeftRow();
        m_given.clear();
    }

    void DoubleClick(int column) override {
        if (column == kCode && !rows().isEmpty())
            chooseGroup();
        else
            LevelPage::DoubleClick(column);
    }

    void CorrectRow() override {
        const QString typed = code().trimmed();
        if (!typed.isEmpty())
            rows().setValue(definition().fields.code, Pad_Left(typed, codeWidth()));
    }

    void CheckRow() override {
        if (!findsRow("Select * From GrohTafsily2 Where Tafsily2GrohCod = " +
                      data::quoted(code().left(m_groupWidth)))) {
            if (showErrorAt(worded(QStringLiteral("گروه {L} از گروه {L} انتخاب نشده است.")), kCode))
                chooseGroup();
            throw data::SilentAbort();
        }
        if (isRenamed() && InUse())
            refuseRow(definition().messages.inUse, kCode);
    }

    bool InUse() override {
        const QString stored = storedCode();
        needOptions();
        return !stored.isEmpty() && isCentreUsed(stored, m_linked);
    }

    void DescribeGrid(TGridProperty& property) override {
        property.reportTitle2 = worded(QStringLiteral("معرفي  {L}"));
    }

private:
    void sortBy(int column) {
        if (!rows().active())
            return;
        // A row that cannot be stored keeps the order that it stands in.
        rows().checkBrowseMode();
        if (!Sort_By_Column(*_Global, rows(), grid(), column))
            showError(QStringLiteral("بر روي اين فيلد نمي توان مرتب سازي انجام داد."));
    }

    // Lets the operator choose a group and gives the row the next code in it; false when he gave up.
    bool chooseGroup() {
        const QPointer<MarakezPage> alive(this);
        needOptions();
        grid().commitCell();
        const QString statement =
            Prepare_Group_Pick(*_Global, Pad_Left(code().left(m_groupWidth), m_groupWidth), levelName());
        const std::optional<QString> group = _TempGridForm->pick(statement);
        if (!group || !alive)
            return false;
        m_group = *group;
        const QString next = nextCentreCode(*_MyDatabase->Connection, m_group, codeWidth());
        rows().edit();
        rows().setValue(definition().fields.code, next);
        m_given = code();
        return true;
    }

    int m_groupWidth = 0;
    QString m_codeKind;
    QString m_group, m_given;  // the group chosen for the row, and the code that the row got then
    LinkedField m_linked;
};

}  // namespace

definition::DefinitionPage* marakezForm(BaseWindow& window, definition::DefinitionPage** variable,
                                        QWidget* parent) {
    return new MarakezPage(window, variable, parent);
}

}  // namespace orglists
