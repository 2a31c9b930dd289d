// The filter, search and sort libraries, worked by keys as an operator does.
#include <QComboBox>
#include <QLabel>

#include "CompanionBridge.h"
#include "MenuFixture.h"

namespace {

const QString kFilter = "پالايش گزارش ...", kName = "نام", kAmount = "مبلغ", kMark = "ماليات";

class RowCompanions : public MenuFixture {
protected:
    void SetUp() override {
        MenuFixture::SetUp();
        run("delete from items insert into items values (1, 'حقوق پايه', 9, 'ض'), (2, 'كار شب', 1234567.5, "
            "''), "
            "(3, 'اضافه کاري', -7.25, NULL), (4, '100% O''Neil', NULL, 'ض'), (5, 'حق مسكن 12', 5, ''), "
            "(6, '[a_b]', 5, 'ض'), (7, NULL, 1234, NULL)");
        items->rows.refresh();
        items->choose(0, 1);
    }

    // The codes of the rows that are left when `act` has been done in the dialog; "all" without a filter.
    QString filtered(const std::function<void(Form&)>& act) {
        acts = {act};
        choose(*items, kFilter);
        if (items->grid.dataset() == &items->rows)
            return "all";
        const QString left = codes();
        choose(*items, "بازگشت از پالايش");
        return left;
    }
    QString codesOf(const QString& column, const QString& comparison, const QString& value = {}) {
        return filtered([&](Form& form) {
            criterion(form, column, comparison, value);
            form.component<QPushButton>("OkBtn")->click();
        });
    }
    void searched(const std::function<void(Form&)>& act) {
        acts = {act};
        answered([&] { Grid_Search(items->grid, "code", "items", memory); });
    }

    static void key(Form& form, Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(form.focusWidget() != nullptr ? form.focusWidget() : &form, pressed, modifiers);
    }
    // Types over what stands in the edit that has the cursor.
    static void type(Form& form, const QString& text) {
        auto* edit = qobject_cast<QLineEdit*>(form.focusWidget());
        ASSERT_NE(edit, nullptr);
        edit->selectAll();
        for (const QChar character : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QApplication::sendEvent(edit, &press);
        }
    }
    static QString label(Form& form, const char* name) {
        return form.component<QLabel>(QString::fromLatin1(name))->text();
    }
    // Chooses an entry of a list of the row of criteria that has the cursor.
    static void pick(Form& form, const char* list, const QString& caption) {
        auto* combo = form.focusWidget()->parentWidget()->findChild<QComboBox*>(QString::fromLatin1(list));
        ASSERT_TRUE(combo != nullptr && combo->findText(caption) >= 0) << qPrintable(caption);
        combo->setCurrentText(caption);
    }
    static void criterion(Form& form, const QString& column, const QString& comparison,
                          const QString& value) {
        pick(form, "cmbColumn", column);
        pick(form, "cmbComparison", comparison);
        if (!value.isEmpty())
            type(form, value);
    }

    QString memory;  // of the search
};

TEST_F(RowCompanions, FilterFindsTextsAsTheyStand) {
    EXPECT_EQ(codesOf(kName, "برابر", "100% O'Neil"), "4");
    EXPECT_EQ(codesOf(kName, "برابر", "کار شب"), "2") << "either kaf";
    EXPECT_EQ(codesOf(kName, "مخالف", "حقوق پايه"), "2,3,4,5,6,7") << "an empty text differs, too";
    EXPECT_EQ(codesOf(kName, "شامل", "%"), "4");
    EXPECT_EQ(codesOf(kName, "شامل", "_"), "6");
    EXPECT_EQ(codesOf(kName, "شامل", "كاری"), "3");
    EXPECT_EQ(codesOf(kName, "شامل", "۱۲"), "5");
    EXPECT_EQ(codesOf(kName, "شروع با", "[a"), "6");
    EXPECT_EQ(codesOf(kName, "شروع با", "حق"), "1,5");
    EXPECT_EQ(codesOf(kName, "خالي"), "7");
    EXPECT_EQ(codesOf(kMark, "علامت دارد"), "1,4,6");
    EXPECT_EQ(codesOf(kMark, "علامت ندارد"), "2,3,5,7");
}

TEST_F(RowCompanions, FilterReadsNumbersAsTheyAreWritten) {
    EXPECT_EQ(codesOf(kAmount, "برابر", "۱٬۲۳۴٬۵۶۷٫۵"), "2");
    EXPECT_EQ(codesOf(kAmount, "بزرگتر", "1,234"), "2");
    EXPECT_EQ(codesOf(kAmount, "کوچکتر يا برابر", "-7.25"), "3");
    EXPECT_EQ(codesOf(kAmount, "مخالف", "5"), "1,2,3,4,7");
    EXPECT_EQ(codesOf(kAmount, "خالي"), "4");
    for (const char* wrong : {"12a", "1,5", "--3", "."})
        EXPECT_EQ(filtered([&](Form& form) {
                      criterion(form, kAmount, "برابر", wrong);
                      key(form, Qt::Key_Return);
                      EXPECT_TRUE(label(form, "lbStatus").contains("عدد نيست")) << wrong;
                      EXPECT_EQ(form.focusWidget()->objectName(), "ValueEdit");
                  }),
                  "all");
}

TEST_F(RowCompanions, FilterJoinsRowsAndBindsAndFirst) {
    const QString left = filtered([&](Form& form) {
        criterion(form, kAmount, "برابر", "5");
        key(form, Qt::Key_Insert);
        criterion(form, kName, "شامل", "12");
        key(form, Qt::Key_Insert);
        pick(form, "cmbJoin", "يا");
        criterion(form, kName, "شروع با", "حقوق");
        EXPECT_EQ(label(form, "lbSentence"),
                  "(«مبلغ» برابر 5 باشد و «نام» شامل «12» باشد) يا «نام» با «حقوق» شروع شود.");
        QTRY_VERIFY(label(form, "lbStatus").startsWith("2 "));
        key(form, Qt::Key_Insert);  // one more, taken away again
        key(form, Qt::Key_Delete, Qt::ControlModifier);
        key(form, Qt::Key_Return);
    });
    EXPECT_EQ(left, "1,5");
}

TEST_F(RowCompanions, FilterIsGivenUpOrRefused) {
    EXPECT_EQ(filtered([](Form& form) {
                  key(form, Qt::Key_Delete, Qt::ControlModifier);
                  key(form, Qt::Key_Return);
              }),
              "all")
        << "no criteria, no restriction";
    EXPECT_EQ(filtered([this](Form& form) {
                  pick(form, "cmbColumn", kName);
                  key(form, Qt::Key_Return);
                  EXPECT_TRUE(label(form, "lbStatus").contains(kName)) << "a value is missing";
                  type(form, "nowhere");
                  key(form, Qt::Key_Return);
                  EXPECT_TRUE(form.isModalShown()) << "no row is left: said once";
                  objects->connection().setMonitor([](const QString&) { throw data::ServerError("broken"); });
                  key(form, Qt::Key_Return);
                  EXPECT_TRUE(label(form, "lbStatus").contains("broken"));
                  objects->connection().setMonitor({});
                  key(form, Qt::Key_Return);
                  EXPECT_FALSE(form.isModalShown());
              }),
              "");
}

TEST_F(RowCompanions, SearchGoesOnAndWraps) {
    const data::Dataset& rows = items->rows;
    searched([&](Form& form) {
        type(form, "کار");
        key(form, Qt::Key_Return);
        EXPECT_EQ(rows.recNo(), 2);
        key(form, Qt::Key_F3);
        EXPECT_EQ(rows.recNo(), 3);
        EXPECT_FALSE(label(form, "lbStatus").contains("ادامه"));
        key(form, Qt::Key_F3);
        EXPECT_EQ(rows.recNo(), 2);
        EXPECT_TRUE(label(form, "lbStatus").contains("ادامه"));
        form.component<QPushButton>("FindPriorBtn")->click();
        EXPECT_EQ(rows.recNo(), 3);
        type(form, "حق");
        key(form, Qt::Key_F3, Qt::ShiftModifier);
        EXPECT_EQ(rows.recNo(), 1);
        type(form, "پیدا;نشد");
        key(form, Qt::Key_Return);
        EXPECT_EQ(rows.recNo(), 1);
        EXPECT_TRUE(label(form, "lbStatus").contains("پيدا نشد"));
    });
    // What was searched for is remembered, a column each; what would end an entry is no part of it.
    items->grid.selectColumn(0);
    searched([&](Form& form) {
        EXPECT_EQ(form.component<QLineEdit>("SearchEdit")->text(), "");
        type(form, "3");
        key(form, Qt::Key_Return);
    });
    items->grid.selectColumn(1);
    searched([](Form& form) {
        EXPECT_EQ(form.component<QLineEdit>("SearchEdit")->selectedText(), "پیدانشد");
        type(form, "new");  // and nothing is searched for
    });
    EXPECT_EQ(memory, "_NAME=پیدانشد;_CODE=3;");
}

TEST_F(RowCompanions, SearchReadsNumbersAndMarksAsShown) {
    const auto found = [this](int column, const QString& text, bool begins = false) {
        items->choose(0, column);
        searched([&](Form& form) {
            if (begins)
                form.component<QAbstractButton>("chBegin")->click();
            form.component<QLineEdit>("SearchEdit")->setText(text);
            form.component<QPushButton>("FindNextBtn")->click();
        });
        return items->rows.recNo();
    };
    EXPECT_EQ(found(2, "1,234,5"), 2);
    EXPECT_EQ(found(2, "۲۳۴۵۶۷"), 2);
    EXPECT_EQ(found(2, "7.25"), 3);
    EXPECT_EQ(found(2, "5", true), 5);
    EXPECT_EQ(found(3, "ض"), 4);
    EXPECT_EQ(found(3, "✓"), 4);
    EXPECT_EQ(found(1, "مسكن ۱۲"), 5);
    EXPECT_EQ(found(1, "o'neil"), 4);
    items->rows.setRestriction("1=0");
    EXPECT_EQ(found(1, "حق"), 0);
}

TEST_F(RowCompanions, SearchTakesWhatIsBeingTypedAndRowsOutOfPlace) {
    data::Dataset& rows = items->rows;
    rows.moveTo(1);
    rows.insert();
    rows.setValue("code", 9);
    rows.setValue("name", "ميان");
    searched([&](Form& form) {
        type(form, "[a_b]");
        key(form, Qt::Key_Return);
        EXPECT_EQ(rows.text("name"), "[a_b]") << "the new row stands elsewhere than its order says";
        type(form, "ميان");
        key(form, Qt::Key_Return);
        EXPECT_EQ(rows.text("name"), "ميان");
    });
}

TEST_F(RowCompanions, SortsBySeveralColumnsAndKeepsTheRow) {
    items->rows.moveTo(3);
    items->grid.setTitleColor(0, Qt::red);
    acts = {[](Form& form) {
        auto* order = form.component<QListWidget>("lsOrder");
        EXPECT_EQ(order->count(), 1);
        order->setFocus();
        key(form, Qt::Key_Delete);
        auto* columns = form.component<QListWidget>("lsColumns");
        columns->setFocus();
        columns->setCurrentRow(1);
        key(form, Qt::Key_Insert);  // name
        key(form, Qt::Key_Insert);  // amount, which took its place
        order->setFocus();
        key(form, Qt::Key_Space);
        key(form, Qt::Key_Up, Qt::ControlModifier);
        key(form, Qt::Key_Return);
    }};
    choose(*items, "مرتب سازي پيشرفته ...");
    EXPECT_EQ(items->rows.indexFieldNames(), "amount DESC;name");
    EXPECT_EQ(items->rows.text("code"), "4");
    EXPECT_EQ(codes(), "2,7,1,6,5,3,4");
    EXPECT_NE(items->grid.titleColor(0), QColor(Qt::red)) << "a marked title tells the order no more";
}

}  // namespace
