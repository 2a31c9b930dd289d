// The look that the dialogs of the reports share: a caption bar with its close button, a body and a row
// of buttons. Escape gives up.
#pragma once

#include <QBoxLayout>
#include <QPushButton>

#include "Form.h"

namespace report {

class ReportDialog : public widgets::Form {
public:
    ReportDialog(const QString& className, const QString& caption);

protected:
    QVBoxLayout* body() const { return m_body; }
    static constexpr int kSpacing = 8;  // pixels between components
    // A push button; the first button of a dialog is pressed by Enter from a field.
    QPushButton* makeButton(const QString& name, const QString& caption, std::function<void()> pressed);

    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_body = nullptr;
    QPushButton* m_default = nullptr;
};

}  // namespace report
