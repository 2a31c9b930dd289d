// What the keys do, once the page has had its say.
#include <QKeyEvent>

#include "DataGridPrivate.h"
#include "EventBoundary.h"
#include "Step.h"

namespace widgets {
namespace {

bool isModifier(int key) {
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
           (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R && key != Qt::Key_Menu) ||
           key == Qt::Key_unknown;
}

// Keys that an entry of the menu may claim; plain typing never asks the page to build its menu.
bool mayBeShortcut(const QKeyEvent& key) {
    const auto modifiers = key.modifiers();
    const bool function = key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F35;
    const bool shifted =
        modifiers.testFlag(Qt::ShiftModifier) && (key.key() == Qt::Key_Insert || key.key() == Qt::Key_Delete);
    return !isModifier(key.key()) &&
           (function || shifted || modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

// Keys with which the text in an open cell is edited rather than the row.
bool editsText(const QKeyEvent& key) {
    for (const auto standard : {QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste,
                                QKeySequence::Undo, QKeySequence::Redo, QKeySequence::SelectAll})
        if (key.matches(standard))
            return true;
    return false;
}

QAction* findAction(const QMenu& menu, const QKeySequence& pressed) {
    for (QAction* action : menu.actions()) {
        if (action->menu() != nullptr) {
            if (QAction* inner = findAction(*action->menu(), pressed))
                return inner;
        } else if (action->shortcuts().contains(pressed)) {
            return action;
        }
    }
    return nullptr;
}

// The characters that a key types; empty for a command.
QString charactersOf(const QKeyEvent& key) {
    const auto modifiers = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    // Ctrl and Alt together are AltGr on some keyboards.
    const bool command = modifiers != Qt::NoModifier && modifiers != (Qt::ControlModifier | Qt::AltModifier);
    const QString text = key.text();
    return command || text.isEmpty() || text[0].unicode() < 0x20 || text[0].unicode() == 0x7F ? QString()
                                                                                              : text;
}

}  // namespace

bool isMove(int key) {
    switch (key) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return false;
    }
}

bool DataGrid::Private::handleKey(QKeyEvent& key) {
    if (typing &&
        key.keyCombination() == QKeyCombination(Qt::CTRL, Qt::Key_Y)) {  // not the text's everywhere
        editor->redo();
        return true;
    }
    if (typing && editsText(key))
        return copyingDenied(key);
    if (runShortcut(key))
        return true;
    if (!isModifier(key.key()))
        markFrom(isMove(key.key()) && key.modifiers().testFlag(Qt::ShiftModifier) && !typing);
    bool dealtWith = true;
    const QPointer<DataGrid> alive(q);
    const bool ran = EventBoundary::run([&] { dealtWith = q->onKeyDown && q->onKeyDown(key); });
    if (!alive || !ran || dealtWith || isModifier(key.key()))
        return true;
    return !EventBoundary::run([&] { dealtWith = act(key); }) || dealtWith;
}

// The text in an open cell does not leave the grid by a way that the menu denies.
bool DataGrid::Private::copyingDenied(const QKeyEvent& key) {
    if (!key.matches(QKeySequence::Copy) && !key.matches(QKeySequence::Cut))
        return false;
    const Step step;  // the menu stays while its grid goes
    EventBoundary::run([this] {
        if (q->beforePopup)
            q->beforePopup();
    });
    const QAction* copy = findAction(*menu, Qt::CTRL | Qt::Key_C);
    return copy && !copy->isEnabled();
}

QAction* DataGrid::Private::menuAction(const QKeyEvent& key) const {
    if (!popupEnabled || !mayBeShortcut(key))
        return nullptr;
    return findAction(*menu, QKeySequence(key.keyCombination()));
}

// The page is asked for its menu where the one that it made last has an entry for the key, or where there is
// none yet: which entries can be chosen changes, their keys do not.
bool DataGrid::Private::runShortcut(const QKeyEvent& key) {
    if (!popupEnabled || !mayBeShortcut(key) || !(menu->isEmpty() || menuAction(key)))
        return false;
    QPointer<QAction> action;
    const bool built = EventBoundary::run([&] {
        if (q->beforePopup)
            q->beforePopup();
        action = menuAction(key);
    });
    const bool ownKey = action && !action->isEnabled() && action->property(kSharesKey).toBool();
    const bool claimed = !built || (action && !ownKey);
    if (built && action && action->isEnabled() && action->isVisible())
        EventBoundary::run([&] { action->trigger(); });  // may take the grid away
    return claimed;
}

// While a cell is open its text takes some keys; all others leave the cell, with its text handed over.
bool DataGrid::Private::act(const QKeyEvent& key) {
    const bool control = key.modifiers().testFlag(Qt::ControlModifier);
    switch (key.key()) {
        case Qt::Key_Escape:
            return escape();
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            if (control) {  // goes to another page, which is its window's affair
                commit();
                return false;
            }
            return leaveByTab(key.key() == Qt::Key_Tab && !key.modifiers().testFlag(Qt::ShiftModifier));
        case Qt::Key_Home:
        case Qt::Key_End:
            if (typing && !control)
                return false;
            break;
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Backspace:
        case Qt::Key_Delete:
            if (typing)
                return false;
            break;
        default:
            break;
    }
    return arrange(key) || moveInGrid(key) || typeText(key);
}

// What else takes a mouse: columns are moved, widened and narrowed, their titles and cells clicked.
bool DataGrid::Private::arrange(const QKeyEvent& key) {
    if (key.key() == Qt::Key_F4 && key.modifiers() == Qt::NoModifier && active()) {
        const auto& handler = dataset()->isEmpty() ? q->onEmptyDoubleClick : q->onDoubleClick;
        if (handler)
            handler(column);
        return true;
    }
    if (key.modifiers() != Qt::AltModifier && key.modifiers() != (Qt::AltModifier | Qt::KeypadModifier))
        return false;
    static constexpr int kStep = 8, kNarrowest = 20, kWidest = 2000;  // pixels
    const auto widen = [this](int by) {
        q->setColumnWidth(column, qBound(kNarrowest, q->columnWidth(column) + by, kWidest));
        return true;
    };
    switch (key.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right: {
            const QList<int> order = q->visibleOrder();
            const qsizetype target = order.indexOf(column) + columnsTo(key.key());
            if (target >= 0 && target < order.size())
                titles->moveSection(titles->visualIndex(column), titles->visualIndex(order[target]));
            showCursor();
            return true;
        }
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return widen(kStep);
        case Qt::Key_Minus:
            return widen(-kStep);
        case Qt::Key_Down:
            if (q->onTitleClick)
                q->onTitleClick(column);
            return true;
        default:
            return false;
    }
}

bool DataGrid::Private::moveInGrid(const QKeyEvent& key) {
    if (!active())
        return false;
    data::Dataset* rows = dataset();
    const bool control = key.modifiers().testFlag(Qt::ControlModifier);
    switch (key.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
            return moveSideways(key.key());
        case Qt::Key_Return:
        case Qt::Key_Enter:
            commit();
            step(1);
            return true;
        case Qt::Key_Home:
            control ? rows->first() : q->selectColumn(q->visibleOrder().value(0));
            return true;
        case Qt::Key_End:
            control ? rows->last() : q->selectColumn(q->lastVisibleColumn());
            return true;
        case Qt::Key_Up:
            rows->prior();
            return true;
        case Qt::Key_Down:
            moveDown(!key.modifiers().testFlag(Qt::ShiftModifier));
            return true;
        case Qt::Key_PageUp:
            commit();
            rows->moveTo(qMax(0, rows->row() - pageRows()));
            return true;
        case Qt::Key_PageDown:
            commit();
            rows->moveTo(qMin(rows->recordCount() - 1, rows->row() + pageRows()));
            return true;
        case Qt::Key_Insert:
            if (key.modifiers() == Qt::NoModifier || key.modifiers() == Qt::KeypadModifier)
                rows->insert();
            return true;
        case Qt::Key_Menu:
            return openMenu(
                q->viewport()->mapToGlobal(q->visualRect(model->index(rows->row(), column)).bottomRight()));
        default:
            return false;
    }
}

bool DataGrid::Private::moveSideways(int key) {
    step(columnsTo(key));
    return true;
}

// Which way among the columns an arrow leads.
int DataGrid::Private::columnsTo(int key) const {
    return (key == Qt::Key_Left) == (q->layoutDirection() == Qt::RightToLeft) ? 1 : -1;
}

void DataGrid::Private::step(int columns) {
    const QList<int> order = q->visibleOrder();
    const qsizetype place = order.indexOf(column) + columns;
    if (place >= 0 && place < order.size())
        q->selectColumn(order[place]);
}

void DataGrid::Private::moveDown(bool mayStartRow) {
    data::Dataset* rows = dataset();
    commit();
    if (rows->row() < rows->recordCount() - 1)
        rows->next();
    else if (mayStartRow && rows->restriction().isEmpty() &&
             (rows->state() != data::Dataset::State::Insert || rows->modified()))
        rows->append();
}

int DataGrid::Private::pageRows() const {
    return qMax(1, q->viewport()->height() / qMax(1, indicator->defaultSectionSize()) - 1);
}

bool DataGrid::Private::escape() {
    if (!active())
        return false;
    data::Dataset* rows = dataset();
    const int field = model->field(column);
    const bool changed = editingRow() && rows->value(field) != rows->originalValue(field);
    if (typing || changed) {
        stopTyping();
        if (changed)
            rows->setValue(field, rows->originalValue(field));
        return true;
    }
    if (!editingRow())
        return false;
    rows->cancel();
    return true;
}

bool DataGrid::Private::leaveByTab(bool forward) {
    commit();
    return q->focusNextPrevChild(forward);
}

bool DataGrid::Private::typeText(const QKeyEvent& key) {
    if (!typing && !q->canType())
        return false;
    const bool plain = !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (key.key() == Qt::Key_F2) {
        if (!typing)
            startTyping(rawText());
        return true;
    }
    if (plain && !typing && (key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete)) {
        dataset()->edit();
        startTyping({});
        return true;
    }
    const QString pressed = charactersOf(key);
    if (const QString text = typedText(pressed); !text.isEmpty()) {
        dataset()->edit();
        startTyping({});
        editor->insert(text);
    }
    return !pressed.isEmpty();
}

}  // namespace widgets
