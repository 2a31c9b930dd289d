#include "Actor.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

#include "Finder.h"
#include "Keyboard.h"
#include "Mouse.h"
#include "Script.h"

namespace play {
namespace {

// Where a click certainly hits: the sign of a check box or radio button, else the middle.
QPoint hitPoint(QWidget* widget) {
    const bool check = qobject_cast<QCheckBox*>(widget) != nullptr;
    if (!check && qobject_cast<QRadioButton*>(widget) == nullptr)
        return widget->rect().center();
    QStyleOptionButton option;
    option.initFrom(widget);
    return widget->style()
        ->subElementRect(check ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator, &option,
                         widget)
        .center();
}

QPoint currentPoint(const QTableView* grid) {
    const QRect cell = grid->visualRect(grid->currentIndex()) & grid->viewport()->rect();
    return cell.isEmpty() ? grid->viewport()->rect().center() : cell.center();
}

// Brings a column into view and returns where it lies in the titles.
QRect titleRect(QTableView* grid, int column) {
    QHeaderView* titles = grid->horizontalHeader();
    if (column < 0 || column >= titles->count())
        throw Failure{QStringLiteral("the grid has no column %1").arg(column)};
    const auto place = [&] {
        return QRect(titles->sectionViewportPosition(column), 0, titles->sectionSize(column),
                     titles->height());
    };
    QScrollBar* bar = grid->horizontalScrollBar();
    for (int value = bar->minimum(); value <= bar->maximum(); ++value) {
        if (titles->viewport()->rect().contains(place().center()))
            break;
        bar->setValue(value);
    }
    return place();
}

}  // namespace

void Actor::clickOn(QWidget* widget) {
    Mouse(widget, hitPoint(widget)).click();
}

void Actor::press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers) {
    Keyboard::press(widget, key, modifiers, {});
}

void Actor::click(QWidget* widget) const {
    if (Finder::usable(widget))
        clickOn(widget);
}

void Actor::doubleClick(QWidget* widget) const {
    if (!Finder::usable(widget))
        return;
    Mouse mouse(widget, hitPoint(widget));
    mouse.click();
    mouse.doublePress();
    mouse.release();
}

void Actor::clickCell(QTableView* grid, int row, int column, bool twice) const {
    if (!Finder::usable(grid))
        return;
    const QModelIndex cell = grid->model()->index(row, column);
    // In an empty grid an operator still finds the place where the first row would stand.
    const bool emptyPlace =
        grid->model()->rowCount() == 0 && row == 0 && column >= 0 && column < grid->model()->columnCount();
    if (!cell.isValid() && !emptyPlace)
        throw Failure{QStringLiteral("the grid has no cell %1 %2").arg(row + 1).arg(column)};
    if (grid->isColumnHidden(column))
        return;
    grid->scrollTo(cell);
    const QPoint place = emptyPlace ? QPoint(titleRect(grid, column).center().x(),
                                             grid->verticalHeader()->defaultSectionSize() / 2)
                                    : (grid->visualRect(cell) & grid->viewport()->rect()).center();
    Mouse mouse(grid->viewport(), place);
    mouse.click();
    if (twice) {
        mouse.doublePress();
        mouse.release();
    }
}

void Actor::clickTitle(QTableView* grid, int column) const {
    if (Finder::usable(grid) && !grid->isColumnHidden(column))
        Mouse(grid->horizontalHeader()->viewport(), titleRect(grid, column).center()).click();
}

void Actor::moveColumn(QTableView* grid, int from, int to) const {
    if (!Finder::usable(grid))
        return;
    QHeaderView* titles = grid->horizontalHeader();
    QList<int> visible;
    for (int place = 0; place < titles->count(); ++place)
        if (!titles->isSectionHidden(titles->logicalIndex(place)))
            visible.append(titles->logicalIndex(place));
    if (from < 0 || to < 0 || from >= visible.size() || to >= visible.size())
        throw Failure{QStringLiteral("the grid shows %1 columns").arg(visible.size())};
    if (from == to)
        return;
    const QRect target = titleRect(grid, visible[to]);
    const QRect start = titleRect(grid, visible[from]);
    // Past the middle of the target, seen from where the drag begins.
    const bool leftwards = target.center().x() < start.center().x();
    const QPoint end(leftwards ? target.left() + target.width() / 4 : target.right() - target.width() / 4,
                     target.center().y());
    Mouse mouse(titles->viewport(), start.center());
    mouse.press();
    mouse.moveTo((start.center() + end) / 2);
    mouse.moveTo(end);
    mouse.release();
}

void Actor::resizeColumn(QTableView* grid, int column, int width) const {
    if (!Finder::usable(grid) || grid->isColumnHidden(column))
        return;
    const QRect title = titleRect(grid, column);
    const bool mirrored = grid->layoutDirection() == Qt::RightToLeft;
    const int grow = width - title.width();
    const QPoint handle(mirrored ? title.left() + 1 : title.right() - 1, title.center().y());
    Mouse mouse(grid->horizontalHeader()->viewport(), handle);
    mouse.moveTo(handle);
    mouse.press();
    mouse.moveTo(handle + QPoint(mirrored ? -grow : grow, 0));
    mouse.release();
}

void Actor::focus(QWidget* widget) const {
    if (Finder::usable(widget))
        widget->setFocus(Qt::MouseFocusReason);
}

void Actor::activateTab(const QString& sheet) const {
    QWidget* page = m_finder.component(sheet);
    for (QWidget* parent = page->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        auto* tabs = qobject_cast<QTabWidget*>(parent);
        const int index = tabs != nullptr ? tabs->indexOf(page) : -1;
        if (index < 0)
            continue;
        if (!Finder::usable(tabs) || !tabs->isTabVisible(index) || !tabs->isTabEnabled(index))
            return;
        const QPoint middle = tabs->tabBar()->tabRect(index).center();
        if (tabs->tabBar()->rect().contains(middle))
            Mouse(tabs->tabBar(), middle).click();
        else
            tabs->setCurrentIndex(index);  // scrolled out of sight
        return;
    }
    throw Failure{sheet + QStringLiteral(" is no tab")};
}

void Actor::choose(QComboBox* combo, int item) const {
    if (item < 0 || item >= combo->count())
        throw Failure{QStringLiteral("the combo has no item %1").arg(item)};
    if (!Finder::usable(combo))
        return;
    combo->setFocus(Qt::MouseFocusReason);
    combo->showPopup();
    QAbstractItemView* list = combo->view();
    list->setCurrentIndex(combo->model()->index(item, combo->modelColumn(), combo->rootModelIndex()));
    press(list, Qt::Key_Return);
}

void Actor::replaceText(QWidget* edit, const QString& text) const {
    if (!Finder::usable(edit))
        return;
    edit->setFocus(Qt::MouseFocusReason);
    if (auto* combo = qobject_cast<QComboBox*>(edit); combo != nullptr && combo->lineEdit() != nullptr)
        edit = combo->lineEdit();
    if (auto* line = qobject_cast<QLineEdit*>(edit))
        line->selectAll();
    else if (auto* memo = qobject_cast<QPlainTextEdit*>(edit))
        memo->selectAll();
    else
        throw Failure{QStringLiteral("this is no edit box")};
    const QPointer<QWidget> alive(edit);
    if (text.isEmpty())
        press(edit, Qt::Key_Delete);
    for (const QString& character : Keyboard::characters(text))
        if (alive)
            Keyboard::type(edit, character);
}

QWidget* Actor::keyTarget() const {
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
    QWidget* target = QApplication::focusWidget();
    QWidget* modal = QApplication::activeModalWidget();
    if (target != nullptr && !target->isVisible())
        target = nullptr;  // of a dialog that closed just now; the platform has not passed the focus on yet
    if (modal == nullptr && target == nullptr)
        modal = m_finder.front()->window();
    if (modal != nullptr && (target == nullptr || (target != modal && !modal->isAncestorOf(target))))
        target = modal->focusWidget() != nullptr ? modal->focusWidget() : modal;
    return Finder::usable(target) ? target : nullptr;
}

void Actor::type(const QString& text) const {
    for (const QString& character : Keyboard::characters(text))
        if (QWidget* target = keyTarget())
            Keyboard::type(target, character);
}

void Actor::key(const QString& name) const {
    const Keyboard::Stroke stroke = Keyboard::stroke(name);
    for (int i = 0; i < stroke.times; ++i) {
        const QPointer<QWidget> target = keyTarget();
        if (target)
            Keyboard::press(target, stroke.key, stroke.modifiers, stroke.text);
        if (target && stroke.key == Qt::Key_Menu) {
            // What a platform sends after this key.
            const QPoint point = target->rect().center();
            QContextMenuEvent event(QContextMenuEvent::Keyboard, point, target->mapToGlobal(point));
            QApplication::sendEvent(target, &event);
        }
    }
}

QAction* Actor::entry(const QMenu* menu, const QString& caption) {
    for (QAction* action : menu->actions())
        if (action->isVisible() && !action->isSeparator() &&
            comparable(Finder::plain(action->text())) == comparable(Finder::plain(caption)))
            return action;
    return nullptr;
}

bool Actor::menuWaits() const {
    return !m_handlesMenu && qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr;
}

void Actor::withMenu(QTableView* grid, bool press, const std::function<void(QMenu*)>& handler) {
    if (!Finder::usable(grid)) {
        handler(nullptr);
        return;
    }
    // A click elsewhere closes what is still open.
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    // A menu may keep its own loop running or not: the handler runs inside the loop, or else after the
    // event; once in either case.
    m_handlesMenu = true;
    bool handled = false;
    const auto handle = [&] {
        handled = true;
        const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        handler(menu);
        if (menu)
            menu->close();
    };
    QTimer inLoop;
    inLoop.setSingleShot(true);
    QObject::connect(&inLoop, &QTimer::timeout, [&] {
        if (handled)
            return;
        if (QApplication::activePopupWidget())
            handle();
        else
            inLoop.start(1);  // what the menu has to know first is waited for
    });
    inLoop.start(0);
    const QPoint point = currentPoint(grid);
    if (press) {
        Mouse mouse(grid->viewport(), point);
        mouse.press(Qt::RightButton);
        mouse.release(Qt::RightButton);
    }
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, grid->viewport()->mapToGlobal(point));
    QApplication::sendEvent(grid->viewport(), &event);
    inLoop.stop();
    if (!handled)
        handle();
    m_handlesMenu = false;
}

bool Actor::chooseEntry(QMenu* menu, const QStringList& captions) {
    QAction* chosen = entry(menu, captions.first());
    if (chosen == nullptr || (captions.size() > 1 && chosen->menu() == nullptr))
        return false;
    if (!chosen->isEnabled())
        return true;
    menu->setActiveAction(chosen);
    if (captions.size() > 1)
        return chooseEntry(chosen->menu(), captions.mid(1));
    press(menu, Qt::Key_Return);
    return true;
}

}  // namespace play
