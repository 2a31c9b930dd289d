// A borderless dialog: its edge is drawn, and its close button keeps to the end of the caption.
#pragma once

#include "Form.h"
#include "FormLayout.h"

namespace definition {

class DialogForm : public widgets::Form {
    Q_OBJECT

public:
    using Form::Form;

protected:
    void buildDialog(const QList<forms::Component>& components);
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace definition
