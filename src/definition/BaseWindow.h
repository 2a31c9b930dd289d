// What a page sees of the window that holds it.
#pragma once

#include "PayOptions.h"
#include "SuiteHost.h"

class TMalyObject;

namespace definition {
class DefinitionPage;
}

class BaseWindow {
public:
    virtual ~BaseWindow() = default;

    // The host's objects as they are now.
    virtual SuiteHost Host() const = 0;
    virtual const TJFieldLen& PayOptions() const = 0;
    const QString& Month_Curent() const { return PayOptions().Month_Curent; }
    virtual TMalyObject& MalyObject() = 0;
    // The pages that have been shown, those that stay empty included.
    virtual QList<definition::DefinitionPage*> OpenPages() const = 0;
    // Whether the user has the right to the page that edits the table; to one without a page as well.
    virtual bool MayShow(const QString& table) const = 0;
    // Whether the payroll column holds an amount above 0 this month for an employee not deleted.
    virtual bool HasTurnover(const QString& table, const QString& column) = 0;
    // The chosen index of one of the window's combos; -1 for none.
    virtual int ComboIndex(const QString& combo) const = 0;
    // The text of the chosen item; empty for none.
    virtual QString ComboText(const QString& combo) const = 0;
    // Shows another item as chosen, for a page that stays at the one it has; the page is not told.
    virtual void SetComboIndex(const QString& combo, int index) = 0;
};
