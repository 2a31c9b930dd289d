#include "Form.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QPainterPath>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QWindow>

#include "Components.h"
#include "EventBoundary.h"
#include "Step.h"

namespace widgets {
namespace {

// Forms in the order of their activation, the last one on top.
QList<Form*>& activationOrder() {
    static QList<Form*> order;
    return order;
}

// Moves a window with the mouse where the platform cannot do it: follows the pointer until the button
// is let go.
class WindowDrag : public QObject {
public:
    explicit WindowDrag(QWidget* window) : QObject(window), m_window(window) {
        m_offset = window->pos() - QCursor::pos();
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseMove) {
            const auto* move = static_cast<QMouseEvent*>(event);
            if (move->buttons() & Qt::LeftButton)
                m_window->move(move->globalPosition().toPoint() + m_offset);
            else
                deleteLater();
        } else if (event->type() == QEvent::MouseButtonRelease) {
            deleteLater();
        }
        return false;
    }

private:
    QWidget* m_window;
    QPoint m_offset;
};

}  // namespace

Form::Form(const QString& className, QWidget* parent) : QWidget(parent), m_className(className) {
    if (parent == nullptr)
        setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    else
        parent->installEventFilter(this);
    hide();
    setLayoutDirection(Qt::RightToLeft);
    setFont(formFont());
    setAutoFillBackground(true);
    activationOrder().prepend(this);
}

Form::~Form() {
    activationOrder().removeAll(this);
    if (m_loop != nullptr)
        m_loop->quit();
}

void Form::setCaption(const QString& caption) {
    setWindowTitle(caption);
    if (auto* bar = component<CaptionBar>(QStringLiteral("Caption_Panel")))
        bar->setCaption(caption);
}

bool Form::runShow() {
    const QPointer<Form> self(this);
    bool shown = false;
    m_showing = true;
    do {
        m_showAgain = false;
        shown = EventBoundary::run([this] {
            if (onShow)
                onShow();
        });
    } while (self && !m_retired && m_showAgain);
    if (self)
        m_showing = false;
    return shown;
}

bool Form::showForm() {
    if (m_retired)
        return false;
    const Step step;
    bringToFront();
    if (m_showing) {
        m_showAgain = true;
        return true;
    }
    const bool wasVisible = !isHidden();
    const QPointer<Form> self(this);
    const bool dialog = m_modal;
    fillParent();
    const bool shown = runShow();
    if (!self || m_retired)
        return false;
    if (!shown) {
        setVisible(wasVisible);
        return false;
    }
    if (dialog && !m_modal)
        return true;  // ended before it was seen
    show();
    raise();
    // A focus that onShow gave while the form was hidden counts from now on.
    if (QWidget* focused = window()->focusWidget(); focused != nullptr && isAncestorOf(focused))
        focused->setFocus();
    EventBoundary::run([this] {
        if (onActivate)
            onActivate();
    });
    return true;
}

int Form::showModal(Place place) {
    if (m_modal)
        return mrNone;
    int result = mrCancel;
    {
        const Pause pause([self = QPointer(this)] {
            if (self)
                self->abandon();
        });
        result = runLoop(place);
    }
    Step::goOn();
    return result;
}

int Form::showBehind(const std::function<int()>& ask) {
    const QPointer<QWidget> focused = QApplication::focusWidget();
    const QPointer<QWidget> below = windowBelow();
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    placeOver(below);
    belongTo(below);
    showForm();
    const auto gone = qScopeGuard([&] {
        hide();
        giveBack(below, focused);
    });
    return ask();
}

// The next key finds the focus where it was, though the platform may take its time.
void Form::giveBack(QWidget* window, QWidget* focused) {
    if (window) {
        window->activateWindow();
        QApplication::setActiveWindow(window);
    }
    if (focused && focused->isVisible())
        focused->setFocus();
}

int Form::runLoop(Place place) {
    const QPointer<QWidget> focused = QApplication::focusWidget();
    const QPointer<QWidget> below = windowBelow();
    const QPointer<Form> self(this);
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setWindowModality(Qt::ApplicationModal);
    if (place == Place::OverActiveWindow)
        placeOver(below);
    belongTo(below);
    m_result = mrNone;
    m_modal = true;
    QEventLoop loop;
    m_loop = &loop;
    if (!showForm()) {
        if (self) {
            m_modal = false;
            m_loop = nullptr;
        }
        return mrCancel;
    }
    activateWindow();
    int result = m_result;
    if (m_modal) {
        QMetaObject::invokeMethod(this, &Form::modalShown, Qt::QueuedConnection);
        result = loop.exec(QEventLoop::DialogExec);
    }
    if (self)
        m_loop = nullptr;
    giveBack(below, focused);
    return result == mrNone ? mrCancel : result;
}

void Form::setModalResult(int result) {
    m_result = result;
    if (m_modal && !m_closing && result != mrNone && !closeForm())
        m_result = mrNone;
}

bool Form::askClose() {
    bool closes = true;
    const bool ran = EventBoundary::run([&] { closes = !onClose || onClose(); });
    return ran && closes;
}

bool Form::closeForm() {
    if (m_closing)
        return false;
    const Step step;
    const QPointer<Form> self(this);
    m_closing = true;
    const bool closes = askClose();
    if (!self)
        return true;
    m_closing = false;
    if (closes)
        finish();
    return closes || m_retired;
}

void Form::abandon() {
    const Step step;
    const QPointer<Form> self(this);
    const bool asking = std::exchange(m_closing, true);
    if (!asking)
        askClose();
    if (!self)
        return;
    m_closing = asking;
    finish();
}

void Form::finish() {
    if (m_retired)
        return;
    const QPointer<Form> self(this);
    const int result = m_result == mrNone ? int(mrCancel) : m_result;
    const bool modal = m_modal;
    m_modal = false;
    hide();
    if (modal && m_loop != nullptr)
        m_loop->exit(result);
    Q_EMIT closed();
    if (self && m_freeOnClose)
        retire();
}

void Form::retire() {
    m_retired = true;
    activationOrder().removeAll(this);
    if (parentWidget() != nullptr)
        parentWidget()->removeEventFilter(this);
    hide();
    setParent(nullptr);
    // Menus and lists that stand open over it are windows of their own.
    for (QWidget* popup : QApplication::topLevelWidgets())
        for (const QObject* owner = popup->parent(); owner != nullptr; owner = owner->parent())
            if (owner == this && popup->isVisible())
                popup->close();
    Step::retire(this);
}

bool Form::onView() const {
    return m_modal || m_showing || isVisibleTo(window());
}

Form* Form::front() {
    const QList<Form*> forms = frontToBack();
    return forms.isEmpty() ? nullptr : forms.first();
}

QList<Form*> Form::frontToBack() {
    QList<Form*> modal, others;
    const QList<Form*>& order = activationOrder();
    for (auto form = order.rbegin(); form != order.rend(); ++form)
        if ((*form)->onView())
            ((*form)->m_modal ? modal : others).append(*form);
    return modal + others;
}

void Form::bringToFront() {
    if (m_retired)
        return;
    activationOrder().removeAll(this);
    activationOrder().append(this);
    if (!isWindow())
        raise();
}

void Form::fillParent() {
    QWidget* parent = parentWidget();
    if (parent == nullptr || isWindow())
        return;
    const QLayout* layout = parent->layout();
    if (layout == nullptr || layout->indexOf(this) < 0)
        setGeometry(parent->contentsRect());
}

QWidget* Form::windowBelow() const {
    // A dialog that was hidden a moment ago may still count as the active window.
    QWidget* active = QApplication::activeWindow();
    if (active != nullptr && active != this && active->isVisible())
        return active;
    for (const Form* form : frontToBack())
        if (form->window() != this && form->isVisible())
            return form->window();
    return nullptr;
}

void Form::placeOver(const QWidget* below) {
    const QScreen* screen = below != nullptr ? below->screen() : QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return;
    const QRect room = screen->availableGeometry();
    QRect place(QPoint(), size());
    place.moveCenter(below != nullptr ? below->frameGeometry().center() : room.center());
    place.moveRight(qMin(place.right(), room.right()));
    place.moveBottom(qMin(place.bottom(), room.bottom()));
    place.moveLeft(qMax(place.left(), room.left()));
    place.moveTop(qMax(place.top(), room.top()));
    move(place.topLeft());
}

void Form::belongTo(const QWidget* below) {
    winId();  // makes the platform's window, which alone can be told whom it belongs to
    if (below != nullptr && below->windowHandle() != nullptr)
        windowHandle()->setTransientParent(below->windowHandle());
}

void Form::setRoundRegion(const QRect& rect) {
    QPainterPath outline;
    outline.addRoundedRect(QRect(0, 0, rect.right() + 1, rect.bottom() + 1), 10, 20);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
    update();
}

void Form::startDrag() {
    QWidget* moved = window();
    if (moved != this)
        return;  // embedded: there is nothing to move
    if (windowHandle() == nullptr || !windowHandle()->startSystemMove())
        new WindowDrag(this);
}

void Form::closeEvent(QCloseEvent* event) {
    event->setAccepted(closeForm());
}

void Form::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(QApplication::focusWidget());
    if (enter && button != nullptr && isAncestorOf(button)) {
        button->click();
        event->accept();
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool Form::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        fillParent();
    return QWidget::eventFilter(watched, event);
}

}  // namespace widgets
