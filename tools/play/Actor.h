// The operator's hands: real key and mouse events at the module's widgets.
#pragma once

#include <QStringList>
#include <functional>

class QAction;
class QComboBox;
class QMenu;
class QTableView;
class QWidget;

namespace play {

class Finder;

class Actor {
public:
    explicit Actor(const Finder& finder) : m_finder(finder) {}

    // --- on what is shown; hidden or disabled things stay as they are -------------------------------
    void click(QWidget* widget) const;
    void doubleClick(QWidget* widget) const;
    void clickCell(QTableView* grid, int row, int column, bool twice) const;
    void clickTitle(QTableView* grid, int column) const;
    void moveColumn(QTableView* grid, int from, int to) const;
    void resizeColumn(QTableView* grid, int column, int width) const;
    void focus(QWidget* widget) const;
    void activateTab(const QString& sheet) const;
    void choose(QComboBox* combo, int item) const;
    void replaceText(QWidget* edit, const QString& text) const;

    // --- at the focus -------------------------------------------------------------------------------
    void type(const QString& text) const;
    // "Ctrl+Delete", "Down*3". Throws Failure for an unknown key.
    void key(const QString& name) const;

    // --- context menu -------------------------------------------------------------------------------
    // Opens it as a right click does and hands it over while it is open, null when it does not open;
    // then closes it.
    void withMenu(QTableView* grid, bool press, const std::function<void(QMenu*)>& handler);
    // Chooses an entry of an open menu by its captions. Throws nothing; false when it is not there.
    static bool chooseEntry(QMenu* menu, const QStringList& captions);
    // An entry of a menu; null when it has none of that caption.
    static QAction* entry(const QMenu* menu, const QString& caption);
    // Whether a menu is open that the operator opened by a key and has to deal with.
    bool menuWaits() const;

    // Past every test, for those who answer dialogs.
    static void clickOn(QWidget* widget);
    static void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = {});

private:
    QWidget* keyTarget() const;

    const Finder& m_finder;
    bool m_handlesMenu = false;
};

}  // namespace play
