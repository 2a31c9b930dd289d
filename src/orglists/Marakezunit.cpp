#include "Marakezunit.h"

#include <QSet>

#include "CentreNumbering.h"
#include "CentreReferences.h"
#include "CodePage.h"
#include "DatabaseHelpers.h"
#include "EntryKeys.h"
#include "FormLook.h"
#include "LevelPage.h"
#include "Malyobjectunit.h"
#include "MarakezForm.h"
#include "ModuleVariables.h"
#include "Query.h"
#include "RowUsage.h"
#include "TextHelpers.h"
#include "Untfmsg.h"
#include "UserRights.h"

definition::DefinitionPage* _MarakezForm = nullptr;

namespace orglists {
namespace {

constexpr int kTitleRoom = 8;  // pixels beside the code's title

class TMarakezForm : public LevelPage {
public:
    TMarakezForm(const definition::PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
                 QWidget* parent)
        : LevelPage(definition, window, variable, parent, QStringLiteral("PK_Tafsily2"),
                    QStringLiteral("كد مركز هزينه تكراري مي باشد.")) {
        grid().admits = [this](int column, QChar character) {
            return column != codeColumn() || Is_Key_Allowed(m_codeKind, data::foldDigits(character).front());
        };
        grid().onTitleClick = [this](int column) { sortBy(column); };
        rows().duringPost = [this] {
            if (pastesBlock() && storedCode().trimmed().isEmpty())
                m_made.append(code());
            else
                keepCentreRights(db(), global().UserId, storedCode(), code());
        };
    }

    bool GridKeys(QKeyEvent& key) override {
        if (rows().active() && definition::isEnter(key) && grid().selectedColumn() == codeColumn() &&
            !chooseGroup())
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
        if (isInUse()) {
            showError(messages.inUse);
            definition::adviseUsage(*this);
            return;
        }
        deleteAndRenumber();
    }

protected:
    void askOptions(data::Questions& questions) override {
        LevelPage::askOptions(questions);
        questions.ask(QStringLiteral("Select COL_LENGTH('GrohTafsily2', 'Tafsily2GrohCod') As GrohCodLen "),
                      [this](const data::ResultSet& found) {
                          m_groupWidth = found.rows.value(0).value(0).toInt();
                          m_codeKind = options().contains(QLatin1String("TypeSarFaslCod=NUM"))
                                           ? QStringLiteral("NUM")
                                           : QStringLiteral("CHR");
                      });
        askLinkedField(questions, m_linked);
    }

    QList<forms::PageColumn> shownColumns() override {
        QList<forms::PageColumn> columns = LevelPage::shownColumns();
        columns[codeColumn()].grid.width = grid().fontMetrics().horizontalAdvance(levelName()) + kTitleRoom;
        return columns;
    }

    // The number that the page has given, unless another operator has stored it meanwhile.
    void numberStoredRow() override {
        if (!m_given.isEmpty() && code() == m_given && code() != storedCode() &&
            Finds_Row(db(), "Select * From Tafsily2 With (TabLockX) Where Tafsily2=" + data::quoted(m_given)))
            rows().setValue(definition().fields.code, nextCentreCode(*db().Connection, m_group, codeWidth()));
    }

    void beginBlock() override {
        m_made.clear();
        m_groups.clear();
    }
    void endBlock() override { giveCentreRights(db(), global().UserId, m_made); }

    void RememberRow() override {
        LevelPage::RememberRow();
        m_given.clear();
    }

    void doubleClick(int column) override {
        if (column == codeColumn() && !rows().isEmpty())
            chooseGroup();
        else
            LevelPage::doubleClick(column);
    }

    void correctRow() override {
        const QString typed = code().trimmed();
        if (!typed.isEmpty())
            rows().setValue(definition().fields.code, Pad_Left(typed, codeWidth()));
    }

    void checkRow() override {
        if (!isGroup(code().left(m_groupWidth))) {
            showErrorAt(worded(QStringLiteral("گروه {L} از گروه {L} انتخاب نشده است.")),
                        definition().fields.code);
            chooseGroup();
            throw data::SilentAbort();
        }
        if (isRenamed() && isInUse())
            refuseRow(definition().messages.inUse, definition().fields.code);
    }

    bool isInUse() override {
        const QVariant stored = referredCode();
        needOptions();
        return stored.isValid() && (isReferredTo(stored) || isLinked(db(), stored.toString(), m_linked));
    }

    void describeGrid(TGridProperty& property) override {
        property.reportTitle2 = worded(QStringLiteral("معرفي  {L}"));
    }

private:
    void sortBy(int column) {
        if (!rows().active())
            return;
        // A row that cannot be stored keeps the order that it stands in.
        rows().checkBrowseMode();
        if (!Sort_By_Column(global(), rows(), grid(), column))
            showError(QStringLiteral("بر روي اين فيلد نمي توان مرتب سازي انجام داد."));
    }

    // Of many rows each group is asked for once.
    bool isGroup(const QString& group) {
        if (pastesBlock() && m_groups.contains(group))
            return true;
        if (!Finds_Row(db(), "Select * From GrohTafsily2 Where Tafsily2GrohCod = " + data::quoted(group)))
            return false;
        m_groups.insert(group);
        return true;
    }

    // Lets the operator choose a group and gives the row the next code in it; false when he gave up.
    bool chooseGroup() {
        needOptions();
        grid().commitCell();
        const QString statement =
            Prepare_Group_Pick(host(), Pad_Left(code().left(m_groupWidth), m_groupWidth), levelName());
        const std::optional<QString> group = _TempGridForm->pick(statement);
        if (!group)
            return false;
        m_group = *group;
        const QString next = nextCentreCode(*db().Connection, m_group, codeWidth());
        rows().edit();
        rows().setValue(definition().fields.code, next);
        m_given = code();
        return true;
    }

    int m_groupWidth = 0;
    QString m_codeKind;
    QString m_group, m_given;  // the group chosen for the row, and the code that the row got then
    // While a block is pasted: codes of new centres, and groups that there are.
    QStringList m_made;
    QSet<QString> m_groups;
    LinkedField m_linked;
};

}  // namespace

const definition::PageDefinition& marakezForm() {
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
        .make = definition::made<TMarakezForm>,
    };
    return page;
}

}  // namespace orglists
