// Finds what a scenario names: forms, components, grids.
#pragma once

#include <QTableView>

#include "DataGrid.h"
#include "Form.h"

namespace play {

class Stage;

class Finder {
public:
    explicit Finder(const Stage& stage) : m_stage(stage) {}

    // The active modal form; null when there is none.
    widgets::Form* modal() const;
    // The active modal form, else the page in front, else the base-information window.
    widgets::Form* front() const;
    // The base-information window; throws Failure when it is not there.
    widgets::Form* window() const;

    // A component by its object name, "Form.component", the caption of a button of the form in front,
    // or a form's own name. Throws Failure when nothing has the name.
    QWidget* component(const QString& name) const;
    // A grid by its name, or "." for the grid of the form in front.
    QTableView* table(const QString& name) const;
    // The same, where only a data grid will do.
    widgets::DataGrid* grid(const QString& name) const;

    // What an operator reads on a component.
    static QString caption(QWidget* widget);
    // A caption without the mark of its access key, blanks at its ends dropped.
    static QString plain(const QString& caption);
    // Whether an operator can act on it now: visible, enabled and not under a modal form.
    static bool usable(const QWidget* widget);

private:
    QList<widgets::Form*> searched() const;

    const Stage& m_stage;
};

}  // namespace play
