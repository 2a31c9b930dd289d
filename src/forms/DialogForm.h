// A borderless dialog of the suite: a drawn edge and a caption bar with its close button. Its components are
// declared, or it has room for them below the bar.
#pragma once

#include <QBoxLayout>

#include "Form.h"
#include "FormLayout.h"

class QPushButton;

namespace forms {

class DialogForm : public widgets::Form {
public:
    // Of declared components, the caption bar among them: see buildDialog. What Escape does is its own
    // affair.
    explicit DialogForm(const QString& className);
    // A caption bar, and below it room to fill. Escape and the close button give up.
    DialogForm(const QString& className, const QString& caption);

protected:
    // The close button keeps to the end of the caption bar.
    void buildDialog(const QList<Component>& components);

    // What stands below the caption bar, from top to bottom.
    QVBoxLayout& body() { return *m_body; }
    static constexpr int kSpacing = 8;  // pixels between components
    // A button whose handler is entered through the event boundary.
    QPushButton* makeButton(const QString& name, const QString& caption, std::function<void()> handler);
    QPushButton* addButton(QBoxLayout& row, const QString& name, const QString& caption,
                           std::function<void()> handler);
    // A row of buttons, the first of them at the right and the last at the left edge.
    QHBoxLayout& addButtonRow();
    // Enter in a field presses it. Without one, what Enter does is the dialog's own affair.
    void setDefaultButton(QPushButton* button) { m_default = button; }

    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QVBoxLayout* m_body = nullptr;
    QPushButton* m_default = nullptr;
};

}  // namespace forms
