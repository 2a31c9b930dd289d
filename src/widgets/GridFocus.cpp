// Entering and leaving the grid, and its menu.
#include <QApplication>
#include <QContextMenuEvent>
#include <QFocusEvent>

#include "DataGridPrivate.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "Form.h"
#include "Step.h"

namespace widgets {

void DataGrid::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    viewport()->update();
    if (d->typing) {
        d->editor->setFocus();
        return;
    }
    if (d->inside)
        return;
    d->inside = true;
    EventBoundary::run([this] {
        if (onEnter)
            onEnter();
    });
}

void DataGrid::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    viewport()->update();
    d->focusLost(*event);
}

// A menu, a dialog or another program borrows the focus; only another widget of the window takes it.
void DataGrid::Private::focusLost(const QFocusEvent& event) {
    const QWidget* next = QApplication::focusWidget();
    const bool borrowed = event.reason() == Qt::PopupFocusReason ||
                          event.reason() == Qt::ActiveWindowFocusReason || next == nullptr ||
                          next->window() != q->window();
    const bool chooses = pickList && pickList->isAncestorOf(next);
    if (borrowed || chooses || next == q || q->isAncestorOf(next))
        return;
    inside = false;
    leave();
}

void DataGrid::Private::leave() {
    if (!active() || returning)
        return;
    try {
        commit();
    } catch (const data::TextException&) {
        // The message waits until the focus has settled, unless a handler of the widget that took the
        // focus has met the same refusal by then.
        refusedOnLeave = true;
        QMetaObject::invokeMethod(
            q,
            [this] {
                const auto* form = qobject_cast<const Form*>(q->window());
                if (!typing || (form && form->retired()))
                    return;
                const QPointer<DataGrid> alive(q);
                if (refusedOnLeave)
                    EventBoundary::run([this] { commit(); });
                if (alive && typing && q->isVisible())
                    editor->setFocus();
            },
            Qt::QueuedConnection);
        return;
    } catch (const std::exception&) {
        return;
    }
    EventBoundary::run([this] {
        if (dataset()->state() == data::Dataset::State::Insert && !dataset()->modified())
            dataset()->cancel();
    });
}

void DataGrid::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QRect cell = visualRect(d->model->index(d->active() ? dataset()->row() : -1, d->column));
    event->setAccepted(d->openMenu(byKey ? viewport()->mapToGlobal(cell.bottomRight()) : event->globalPos()));
}

bool DataGrid::Private::openMenu(const QPoint& globalPosition) {
    if (!popupEnabled || menu->isVisible())
        return true;
    const Step step;  // the menu stays while its grid goes
    const bool built = EventBoundary::run([this] {
        if (q->beforePopup)
            q->beforePopup();
    });
    for (QAction* action : menu->actions())
        if (action->property(kShortcutOnly).toBool())
            action->setVisible(false);
    if (built && !menu->isEmpty() && q->isVisible())
        menu->popup(globalPosition);
    return true;
}

}  // namespace widgets
