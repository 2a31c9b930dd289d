#include "LevelPage.h"

#include <QScopedValueRollback>

#include "DatabaseHelpers.h"
#include "ModuleVariables.h"
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
    : DefinitionPage(definition, window, variable, parent), m_keyName(keyName), m_repeatedCode(repeatedCode) {
    rows().beforeDelete = [this] {
        if (!m_deletes)
            throw data::SilentAbort();
    };
}

// Titles speak the company's words to a user without the right too.
void LevelPage::OpenPage() {
    DefinitionPage::OpenPage();
    if (rows().active())
        return;
    LevelPage::readOptions();
    QList<widgets::GridColumn> columns = grid().gridColumns();
    for (widgets::GridColumn& column : columns)
        column.title = worded(column.title);
    grid().setGridColumns(columns);
}

void LevelPage::OpenData() {
    readOptions();
    DefinitionPage::OpenData();
}

void LevelPage::ReopenData() {
    readOptions();
    DefinitionPage::ReopenData();
    showColumns();
}

void LevelPage::readOptions() {
    m_options = Get_Top_Value(*_MyDatabase, QStringLiteral("SCode"), _Global->SCode_1 + _Global->SCode_2,
                              QStringLiteral("Kavesta"), QStringLiteral("Options"));
    m_levelName = Get_Param(m_options, QStringLiteral("NAMTAFSILY2")).trimmed();
    if (m_levelName.isEmpty())
        m_levelName = kNamelessLevel;
}

QList<forms::PageColumn> LevelPage::GridColumns() {
    QList<forms::PageColumn> columns = DefinitionPage::GridColumns();
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
    grid().selectColumn(0);
}

void LevelPage::deleteAndRenumber() {
    const QScopedValueRollback deletes(m_deletes, true);
    DefinitionPage::deleteAndRenumber();
}

void LevelPage::PostErrorHandler(const data::ServerError& error) {
    const QString violation = "Violation of PRIMARY KEY constraint '" + m_keyName + u'\'';
    if (!error.text().contains(violation, Qt::CaseInsensitive)) {
        showError(QStringLiteral("اشكال در ثبت اطلاعات"));
        return;
    }
    showErrorAt(worded(m_repeatedCode), 0);
}

}  // namespace orglists
