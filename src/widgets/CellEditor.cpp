#include "CellEditor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include "CellText.h"
#include "EventBoundary.h"

namespace widgets {

CellEditor::CellEditor(QWidget* parent) : QLineEdit(parent) {
    setAcceptDrops(false);
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste))
        paste(QGuiApplication::clipboard()->text());
    else
        QLineEdit::keyPressEvent(event);
}

void CellEditor::mouseReleaseEvent(QMouseEvent* event) {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    if (event->button() != Qt::MiddleButton || !clipboard->supportsSelection())
        return QLineEdit::mouseReleaseEvent(event);
    deselect();
    paste(clipboard->text(QClipboard::Selection));
}

void CellEditor::inputMethodEvent(QInputMethodEvent* event) {
    QInputMethodEvent admitted(event->preeditString(), event->attributes());
    if (!event->commitString().isEmpty())
        EventBoundary::run([&] {
            admitted.setCommitString(typed(event->commitString()), event->replacementStart(),
                                     event->replacementLength());
        });
    QLineEdit::inputMethodEvent(&admitted);
}

// A text that does not fit is not cut behind the operator's back.
void CellEditor::paste(const QString& text) {
    EventBoundary::run([&] {
        const QString line = pasted(text);
        requireLength(this->text().size() - selectedText().size() + line.size(), maxLength());
        if (!line.isEmpty())
            insert(line);
    });
}

}  // namespace widgets
