// A small borderless dialog of the suite: caption bar with its close button, an edge, and room for what
// the dialog is about. Escape and the close button give up.
#pragma once

#include <QBoxLayout>

#include "Form.h"

class QPushButton;

namespace forms {

class DialogForm : public widgets::Form {
public:
    DialogForm(const QString& className, const QString& caption);

protected:
    // What stands below the caption bar, from top to bottom.
    QVBoxLayout& body() { return *m_body; }
    // A button whose handler is entered through the event boundary. Never the default one: what Enter
    // does is the dialog's own affair.
    QPushButton* addButton(QBoxLayout& row, const QString& name, const QString& caption,
                           std::function<void()> handler);
    // A row of buttons, the first of them at the right and the last at the left edge.
    QHBoxLayout& addButtonRow();

    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_body;
};

}  // namespace forms
