// The grid under keys: cells and the menu.
#include <QAccessible>
#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "GridFixture.h"

namespace {

// A window with the grid and a button beside it.
class DataGridTest : public GridFixture {
protected:
    void SetUp() override {
        GridFixture::SetUp();
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&grid);
        layout->addWidget(&button);
        window.resize(560, 260);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        grid.setFocus();
        grid.selectColumn(1);
    }
    void TearDown() override {
        GridFixture::TearDown();
        grid.setParent(nullptr);
        button.setParent(nullptr);
    }

    void key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), pressed, modifiers);
    }
    void type(const QString& typed) {
        for (const QChar character : typed) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QApplication::sendEvent(QApplication::focusWidget(), &press);
        }
    }
    // Current row as operators count, selected column.
    std::pair<int, int> at() { return {rows.recNo(), grid.selectedColumn()}; }
    using Place = std::pair<int, int>;

    QWidget window;
    QPushButton button;
};

// Through the interface that readers of the screen use.
TEST_F(DataGridTest, IsToldToThoseWhoDoNotSeeIt) {
    rows.moveTo(1);
    QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&grid)->tableInterface();
    ASSERT_EQ(table->rowCount(), 3);
    const auto said = [&](int row, int column, QAccessible::Text text) {
        return table->cellAt(row, column)->text(text);
    };
    EXPECT_EQ(said(1, 1, QAccessible::Name), "<b>حق & مسكن");
    EXPECT_EQ(said(1, 0, QAccessible::Description), "كد، رديف 2 از 3، فقط خواندني");
    EXPECT_EQ(said(1, 3, QAccessible::Name), "1,234,567.50");
    EXPECT_EQ(said(2, 3, QAccessible::Name), "خالي");
    EXPECT_EQ(said(0, 4, QAccessible::Name), "علامت دارد");
    EXPECT_TRUE(table->cellAt(0, 4)->state().checked);
    EXPECT_EQ(said(1, 4, QAccessible::Name), "علامت ندارد");
    EXPECT_TRUE(table->cellAt(1, 1)->state().focused);
    EXPECT_FALSE(table->cellAt(0, 1)->state().focused);
    const QAccessibleTableCellInterface* cell = table->cellAt(1, 1)->tableCellInterface();
    EXPECT_EQ(cell->rowIndex(), 1);
    EXPECT_EQ(cell->columnHeaderCells().value(0)->text(QAccessible::Name), "نام حقوق");
}

TEST_F(DataGridTest, TypingReplacesTheCellAndLeavingItStores) {
    type("ماموریت ۲");
    EXPECT_TRUE(grid.typingInCell());
    EXPECT_EQ(rows.state(), State::Edit);
    EXPECT_EQ(rows.text("name"), "حقوق پايه");
    key(Qt::Key_Left);
    EXPECT_TRUE(grid.typingInCell()) << "the arrow moves in the text";
    key(Qt::Key_Down);
    EXPECT_FALSE(grid.typingInCell());
    EXPECT_EQ(at(), Place(2, 1));
    EXPECT_EQ(grid.cellText(0, 1), "ماموريت 2");
    key(Qt::Key_F2);
    key(Qt::Key_Backspace);
    key(Qt::Key_Up);
    EXPECT_EQ(grid.cellText(1, 1), "<b>حق & مسك");
    key(Qt::Key_Backspace);
    EXPECT_TRUE(grid.typingInCell());
    grid.commitCell();
    EXPECT_EQ(rows.text("name"), "");
    key(Qt::Key_Escape);
    EXPECT_EQ(rows.text("name"), "ماموريت 2");
}

TEST_F(DataGridTest, ThePageSeesEveryKeyFirst) {
    QList<int> keys;
    grid.onKeyDown = [&](QKeyEvent& pressed) {
        keys.append(pressed.key());
        return pressed.key() == Qt::Key_Down;
    };
    grid.onKeyPress = [](QChar typed) { return typed.toUpper(); };
    grid.admits = [](int, QChar typed) { return typed != u'X'; };
    key(Qt::Key_Down);
    EXPECT_EQ(rows.recNo(), 1);
    type("axb");
    QInputMethodEvent composed;
    composed.setCommitString("xc");
    QApplication::sendEvent(grid.findChild<QLineEdit*>(), &composed);
    key(Qt::Key_Home);
    key(Qt::Key_Down);
    EXPECT_TRUE(grid.typingInCell());
    key(Qt::Key_Tab);
    EXPECT_EQ(rows.text("name"), "ABC");
    EXPECT_EQ(keys, (QList<int>{Qt::Key_Down, 0, 0, 0, Qt::Key_Home, Qt::Key_Down, Qt::Key_Tab}));
    EXPECT_FALSE(grid.hasFocus()) << "Tab leaves the grid";
    EXPECT_EQ(rows.state(), State::Edit);
}

TEST_F(DataGridTest, ARefusedTextStaysInItsCell) {
    grid.selectColumn(3);
    type("12a");
    key(Qt::Key_Down);
    EXPECT_EQ(messages.size(), 1);
    EXPECT_EQ(at(), Place(1, 3));
    EXPECT_TRUE(grid.typingInCell());
    button.setFocus();
    QApplication::processEvents();
    EXPECT_EQ(messages.size(), 2);
    EXPECT_TRUE(grid.typingInCell());
    EXPECT_FALSE(button.hasFocus()) << "the focus comes back to the text";
    type("5");
    key(Qt::Key_Enter);
    EXPECT_EQ(rows.value("length"), 5.0);
}

TEST_F(DataGridTest, TheMenuIsBuiltEachTimeAndItsShortcutsObeyIt) {
    int built = 0, deleted = 0;
    bool allowed = false;
    grid.beforePopup = [&] {
        ++built;
        grid.popupMenu()->clear();
        QAction* entry = grid.popupMenu()->addMenu("رديف")->addAction("حذف", [&] { ++deleted; });
        entry->setShortcut(QKeySequence("Ctrl+Del"));
        entry->setEnabled(allowed);
    };
    key(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(built, 1);
    key(Qt::Key_Control, Qt::ControlModifier);
    key(Qt::Key_Home, Qt::ControlModifier);
    key(Qt::Key_F2);
    key(Qt::Key_Escape);
    EXPECT_EQ(built, 1) << "keys that no entry has";
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(rows.state(), State::Browse);
    allowed = true;
    type("typed");
    const int before = built;
    key(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(deleted, 1) << "from an open cell as well";
    EXPECT_EQ(built, before + 1);
    key(Qt::Key_Escape);
    grid.setPopupEnabled(false);
    key(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(deleted, 1);
}

}  // namespace
