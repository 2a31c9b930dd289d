#include "LevelPage.h"

#include <QScopedValueRollback>

#include "DatabaseHelpers.h"
#include "Query.h"
#include "TextHelpers.h"

namespace orglists {
namespace {

// Where a company has no name of its own for the level.
const QString kNamelessLevel = QStringLiteral("تفصيلي2");

}  // namespace

LevelPage::LevelPage(const definition::PageDefinition& definition, BaseWindow& window,
                     DefinitionPage** variable, QWidget* parent, const QString& keyName,
                     const QString& repeatedCode)
    : DefinitionPage(definition, window, variable, parent),
      m_keyName(keyName),
      m_repeatedCode(repeatedCode),
      m_levelName(kNamelessLevel) {
    rows().beforeDelete = [this] {
        if (!m_deletes)
            throw data::SilentAbort();
    };
}

// Titles speak the company's words to a user without the right too.
void LevelPage::OpenPage() {
    if (!parentWidget()->isEnabled()) {
        opening().run([this] {
            data::Questions questions;
            LevelPage::askOptions(questions);
            questions.send(*db().Connection);
        });
        QList<widgets::GridColumn> columns = grid().gridColumns();
        for (widgets::GridColumn& column : columns)
            column.title = worded(column.title);
        grid().setGridColumns(columns);
    }
    DefinitionPage::OpenPage();
}

void LevelPage::openData() {
    renewOptions();
    DefinitionPage::openData();
}

void LevelPage::reopenData() {
    renewOptions();
    DefinitionPage::reopenData();
}

void LevelPage::renewOptions() {
    m_optionsRead = opening().run([this] { readOptions(); });
}

void LevelPage::needOptions() {
    if (!m_optionsRead)
        readOptions();
    m_optionsRead = true;
}

void LevelPage::readOptions() {
    data::Questions questions;
    askOptions(questions);
    questions.send(*db().Connection);
}

void LevelPage::askOptions(data::Questions& questions) {
    questions.ask("Select Top 1 Kavesta From Options Where SCode = " +
                      data::quoted(global().SCode_1 + global().SCode_2),
                  [this](const data::ResultSet& found) {
                      m_options = data::valueText(found.rows.value(0).value(0));
                      const QString name = Get_Param(m_options, QStringLiteral("NAMTAFSILY2")).trimmed();
                      m_levelName = name.isEmpty() ? kNamelessLevel : name;
                  });
}

QList<forms::PageColumn> LevelPage::shownColumns() {
    QList<forms::PageColumn> columns = DefinitionPage::shownColumns();
    for (forms::PageColumn& column : columns)
        column.grid.title = worded(column.grid.title);
    return columns;
}

QString LevelPage::worded(const QString& text) const {
    return QString(text).replace(QLatin1String("{L}"), m_levelName);
}

int LevelPage::codeWidth() {
    return rows().columns().value(rows().columnIndex(definition().fields.code)).length;
}

QVariant LevelPage::referredCode() {
    const QString stored = storedCode();
    return stored.isEmpty() ? QVariant() : QVariant(stored);
}

QString LevelPage::storedCode() {
    return data::valueText(rows().originalValue(rows().columnIndex(definition().fields.code)));
}

QString LevelPage::code() {
    return rows().text(definition().fields.code);
}

bool LevelPage::isRenamed() {
    const QString stored = storedCode().trimmed();
    return !stored.isEmpty() && stored.compare(code().trimmed(), Qt::CaseInsensitive) != 0;
}

void LevelPage::NumberNewRow() {
    grid().selectColumn(codeColumn());
}

void LevelPage::ValidateRow() {
    needOptions();
    DefinitionPage::ValidateRow();
}

void LevelPage::deleteAndRenumber() {
    const QScopedValueRollback deletes(m_deletes, true);
    DefinitionPage::deleteAndRenumber();
}

void LevelPage::PostErrorHandler(const data::ServerError& error) {
    if (error.fault() == data::Fault::LockTimeout)
        return DefinitionPage::PostErrorHandler(error);
    if (error.fault() != data::Fault::RepeatedKey || !error.text().contains(m_keyName, Qt::CaseInsensitive)) {
        showError(QStringLiteral("اشكال در ثبت اطلاعات"));
        return;
    }
    showErrorAt(worded(m_repeatedCode), definition().fields.code);
}

}  // namespace orglists
