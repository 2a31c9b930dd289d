// What the pages of the ledger's second detail level have in common: the company's own name for the level
// in all their words, codes that the operator types, and deletions that are the page's alone.
#pragma once

#include "DefinitionPage.h"
#include "Questions.h"

namespace orglists {

class LevelPage : public definition::DefinitionPage {
public:
    // `keyName` is the server's name of the table's primary key, `repeatedCode` what is said when it
    // refuses a code.
    LevelPage(const definition::PageDefinition& definition, BaseWindow& window, DefinitionPage** variable,
              QWidget* parent, const QString& keyName, const QString& repeatedCode);

    void OpenPage() override;
    void NumberNewRow() override;
    void ValidateRow() override;
    void PostErrorHandler(const data::ServerError& error) override;

    QVariant referredCode() override;

protected:
    void openData() override;
    void reopenData() override;
    QList<forms::PageColumn> shownColumns() override;
    void deleteAndRenumber() override;
    // Asks for what the page takes from the suite's options.
    virtual void askOptions(data::Questions& questions);
    // Reads them when the show could not: its rows are seen without them, but nothing is done to them.
    void needOptions();
    // {L} becomes the level's name.
    QString worded(const QString& text) const override;

    const QString& levelName() const { return m_levelName; }
    // The suite's options of the company, as one text.
    const QString& options() const { return m_options; }
    // The grid's column of the code.
    int codeColumn() const { return gridColumn(definition().fields.code); }
    // How many characters the code has.
    int codeWidth();
    // The row's code as it is stored; empty for a row that is not yet.
    QString storedCode();
    // The row's code as it stands now.
    QString code();
    // Whether the row is stored under another code; letter case and blanks make none.
    bool isRenamed();

private:
    QString m_keyName, m_repeatedCode;
    QString m_options, m_levelName;
    bool m_deletes = false;
    bool m_optionsRead = false;

    void renewOptions();
    void readOptions();
};

}  // namespace orglists
