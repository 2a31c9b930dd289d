// The base-information window: the module's one window, whose tabs hold the pages.
#pragma once

#include <memory>

#include "BaseWindow.h"
#include "DefinitionPage.h"
#include "Form.h"
#include "Malyobjectunit.h"
#include "PageCatalogue.h"

class QTabWidget;

class TSabtPageForm : public widgets::Form, public BaseWindow {
    Q_OBJECT

public:
    // Reads the user's rights. Throws what the database refuses.
    explicit TSabtPageForm(QWidget* parent);
    ~TSabtPageForm() override;

    const QString& Rights() const { return m_rights; }
    SuiteHost Host() const override;
    const TJFieldLen& PayOptions() const override { return m_options; }
    TMalyObject& MalyObject() override { return *m_services; }
    QList<definition::DefinitionPage*> OpenPages() const override;
    bool MayShow(const QString& table) const override;
    bool HasTurnover(const QString& table, const QString& column) override;
    int ComboIndex(const QString& combo) const override;
    QString ComboText(const QString& combo) const override;
    void SetComboIndex(const QString& combo, int index) override;

    // Loads the options, and shows the salary tab. Throws data::Refusal when the options do not allow it.
    void FormShow();
    // While one is being shown or closed: not there yet, or no more, but messages of it may stand open.
    static inline bool comesOrGoes = false;
    // Ends the window without a word.
    void release();
    // Whether the connection is busy in the midst of a step, so that nothing can be sent before it ends.
    static bool mustWait();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildComponents();
    void SetAccessImage(bool enabled);
    void showSheet(const QString& sheet);
    void showPage(const shell::PagePlace& place);
    static QList<definition::DefinitionPage*> takePages();
    static definition::DefinitionPage* storeRows();
    void bringForward(const definition::DefinitionPage& page);
    void dropPages();
    void leaveMonth();
    bool FormClose();
    void placeCaptionButtons();

    QString m_rights;
    TJFieldLen m_options;
    QString m_pagesMonth;  // the month that the open pages belong to
    std::unique_ptr<TMalyObject> m_services;
    bool m_over = false;  // its pages are gone; those of today belong to its successor
    QTabWidget* pc_Payment = nullptr;
};

extern "C" TSabtPageForm* _SabtPageForm;
