// The line in which the text of a cell is typed.
#pragma once

#include <QLineEdit>
#include <functional>

namespace widgets {

class CellEditor : public QLineEdit {
public:
    explicit CellEditor(QWidget* parent);

    // What of a text that the clipboard (an input method) brings in may come in. Entered through the event
    // boundary; an exception keeps the text out.
    std::function<QString(const QString&text)> pasted, typed;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    void paste(const QString& text);
};

}  // namespace widgets
