// The base of every window, page and dialog: named components, show and close events, modal results.
#pragma once

#include <QWidget>
#include <functional>

class QEventLoop;

namespace widgets {

// Modal results, and the answers of message buttons.
enum ModalResult { mrNone = 0, mrOk = 1, mrCancel = 2, mrYes = 6, mrNo = 7 };

class Form : public QWidget {
    Q_OBJECT

public:
    // `className` is the form's name in the system ("TFormpay"); right to left, Tahoma, no frame.
    explicit Form(const QString& className, QWidget* parent = nullptr);
    ~Form() override;

    const QString& className() const { return m_className; }
    // The form's caption; drawn by its caption bar where it has one.
    void setCaption(const QString& caption);
    QString caption() const { return windowTitle(); }

    // Shows the form, in front of its siblings, and fills its parent when it has one. onShow runs on
    // every call, before the form is seen, then onActivate. False when onShow did not run to its end
    // (the form is then left hidden unless it was visible before). In the midst of onShow it only makes
    // onShow run once more.
    bool showForm();
    // Where a dialog stands: in the middle over the active window, or where it was put.
    enum class Place { OverActiveWindow, AsItStands };
    // Shows it as a dialog and returns its modal result; mrCancel when it was closed without one or
    // could not be shown. Nested loops are fine. Throws data::SilentAbort in a step whose window has ended.
    int showModal(Place place = Place::OverActiveWindow);
    // Stands open while `ask` puts a question about what it shows; what that returns.
    int showBehind(const std::function<int()>& ask);
    bool isModalShown() const { return m_modal; }
    // Ends showModal, unless onClose refuses. Outside it stores the result only.
    void setModalResult(int result);
    int modalResult() const { return m_result; }
    // Asks onClose and hides or, after setFreeOnClose, deletes the form. False when it stays.
    bool closeForm();
    void setFreeOnClose(bool free) { m_freeOnClose = free; }
    // Closes it whatever onClose says.
    void abandon();
    // Takes the form out of sight for good, with what has opened over it; it is deleted once no step is
    // under way.
    void retire();
    bool retired() const { return m_retired; }

    // A component of this form by its name; null when there is none.
    template <class Widget>
    Widget* component(const QString& name) const {
        return findChild<Widget*>(name);
    }

    // The active modal form, else the page or window activated last that is still visible; null when
    // there is none. Its messages and its error handler count.
    static Form* front();
    // All forms on view, the one in front first.
    static QList<Form*> frontToBack();
    // Moves the form to the top of that order.
    void bringToFront();

    // Events; each is entered through the event boundary.
    std::function<void()> onShow;
    std::function<void()> onActivate;
    // Returns false, or throws, to stay open.
    std::function<bool()> onClose;

    // Shows no more than the rectangle from (0, 0) to this one's corner, with rounded corners.
    void setRoundRegion(const QRect& rect);
    // Moves the window with the mouse, as its caption bar does while it is pressed.
    void startDrag();

Q_SIGNALS:
    void modalShown();
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool onView() const;
    bool runShow();
    bool askClose();
    void finish();
    int runLoop(Place place);
    static void giveBack(QWidget* window, QWidget* focused);
    void fillParent();
    QWidget* windowBelow() const;
    void placeOver(const QWidget* below);
    void belongTo(const QWidget* below);

    QString m_className;
    QEventLoop* m_loop = nullptr;
    int m_result = mrNone;
    bool m_showing = false;
    bool m_showAgain = false;
    bool m_closing = false;
    bool m_retired = false;
    bool m_modal = false;
    bool m_freeOnClose = false;
};

}  // namespace widgets
