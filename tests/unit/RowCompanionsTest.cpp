// The filter, search and sort libraries, loaded by name and worked by keys as an operator does.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLibrary>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "Appearance.h"
#include "CompanionEntries.h"
#include "DataGrid.h"
#include "Embedded.h"
#include "EventBoundary.h"
#include "Form.h"

using data::Dataset;
using widgets::ColumnKind;
using widgets::Form;

namespace {

template <class Entry>
Entry* entry(const char* library, const char* name) {
    QLibrary loaded(QCoreApplication::applicationDirPath() + "/../DLLS/SharedForms/" +
                    QString::fromLatin1(library));
    auto* found = reinterpret_cast<Entry*>(loaded.resolve(name));
    if (found == nullptr)
        ADD_FAILURE() << qPrintable(loaded.errorString());
    return found;
}

class RowCompanions : public testing::Test {
protected:
    void SetUp() override {
        server = tsql::open(QStringLiteral(":memory:"), tsql::OpenMode::Create);
        server->execute("create table items (code int, name varchar(30), amount float, mark varchar(1))");
        for (const char* row :
             {"1,'حقوق پايه',9,'ض'", "2,'كار شب',1234567.5,''", "3,'اضافه کاري',-7.25,NULL",
              "4,'100% O''Neil',NULL,'ض'", "5,'حق مسکن 12',5,''", "6,'[a_b]',5,'ض'", "7,NULL,1234,NULL"})
            server->execute(QStringLiteral("insert into items values (%1)").arg(QString::fromUtf8(row)));
        rows.setConnection(server.get());
        rows.setTableName("items");
        rows.setIndexFieldNames("code");
        grid.setGridColumns(
            {{.field = "code", .title = "كد", .width = 40, .kind = ColumnKind::Code, .readOnly = true},
             {.field = "name", .title = "نام حقوق و مزايا", .width = 188, .kind = ColumnKind::Name},
             {.field = "amount",
              .title = "مبلغ",
              .width = 120,
              .kind = ColumnKind::Number,
              .displayFormat = "###,###,##0.##"},
             {.field = "mark", .title = "ماليات", .width = 60, .kind = ColumnKind::Mark}});
        grid.setDataset(&rows);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&grid);
        window.resize(560, 300);
        rows.open();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        grid.setFocus();
        grid.selectColumn(1);
    }
    void TearDown() override {
        widgets::EventBoundary::setMessageSink({});
        rows.close();
        grid.setParent(nullptr);
    }

    // Runs `act` inside the dialog that `call` shows, and gives it up if `act` has left it open.
    void inside(const std::function<void(Form&)>& act, const std::function<void()>& call) {
        bool acted = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            Form* form = Form::front();
            if (form == nullptr || !form->isModalShown() || !form->isVisible())
                return;
            timer.stop();
            acted = true;
            act(*form);
            if (form->isModalShown())
                form->setModalResult(widgets::mrCancel);
        });
        timer.start(0);
        call();
        EXPECT_TRUE(acted) << "no dialog was shown";
    }
    QString filtered(const std::function<void(Form&)>& act) {
        data::HostContext context;
        data::HostDatabase database{nullptr, server.get()};
        QString result = "old";
        inside(act, [&] {
            entry<companions::ShowFilter>("RowSieve", "ShowFilter")(&result, &context, &database, nullptr,
                                                                    &grid, "items", "");
        });
        return result;
    }
    QString searched(const QString& previous, const std::function<void(Form&)>& act) {
        QString result;
        inside(act, [&] {
            entry<companions::GridSearch>("RowSeek", "GridSearch")(&result, &grid, "code", "items", previous);
        });
        return result;
    }
    QString sorted(const std::function<void(Form&)>& act) {
        QString result;
        inside(act, [&] { entry<companions::AdvSort>("RowSeek", "AdvSort")(&result, &grid, "", "", ""); });
        return result;
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
    static void choose(Form& form, const char* list, const QString& caption) {
        auto* combo = form.focusWidget()->parentWidget()->findChild<QComboBox*>(QString::fromLatin1(list));
        ASSERT_NE(combo, nullptr);
        ASSERT_GE(combo->findText(caption), 0) << qPrintable(caption);
        combo->setCurrentText(caption);
    }
    static void criterion(Form& form, const QString& column, const QString& comparison,
                          const QString& value) {
        choose(form, "cmbColumn", column);
        choose(form, "cmbComparison", comparison);
        if (!value.isEmpty())
            type(form, value);
    }
    // The codes of the rows that a statement selects.
    QStringList codes(const QString& statement) {
        QStringList result;
        for (const QVariantList& row : server->execute(statement + " Order By code").rows)
            result.append(row[0].toString());
        return result;
    }
    QString codesOf(const QString& column, const QString& comparison, const QString& value = {}) {
        const QString statement = filtered([&](Form& form) {
            criterion(form, column, comparison, value);
            key(form, Qt::Key_Return);
        });
        return statement.isEmpty() ? QStringLiteral("none") : codes(statement).join(u',');
    }

    std::unique_ptr<data::Connection> server;
    Dataset rows;
    QWidget window;
    widgets::DataGrid grid;
};

const QString kName = QStringLiteral("نام حقوق و مزايا");
const QString kAmount = QStringLiteral("مبلغ");

TEST_F(RowCompanions, FilterFindsTextsAsTheyStand) {
    EXPECT_EQ(codesOf(kName, "برابر", "100% O'Neil"), "4");
    EXPECT_EQ(codesOf(kName, "برابر", "کار شب"), "2") << "either kaf";
    EXPECT_EQ(codesOf(kName, "مخالف", "حقوق پايه"), "2,3,4,5,6,7") << "an empty text differs, too";
    EXPECT_EQ(codesOf(kName, "شامل", "%"), "4");
    EXPECT_EQ(codesOf(kName, "شامل", "a_b"), "6");
    EXPECT_EQ(codesOf(kName, "شامل", "كاری"), "3");
    EXPECT_EQ(codesOf(kName, "شامل", "۱۲"), "5");
    EXPECT_EQ(codesOf(kName, "شروع با", "[a"), "6");
    EXPECT_EQ(codesOf(kName, "شروع با", "حق"), "1,5");
    EXPECT_EQ(codesOf(kName, "خالي"), "7");
    EXPECT_EQ(codesOf("ماليات", "علامت دارد"), "1,4,6");
    EXPECT_EQ(codesOf("ماليات", "علامت ندارد"), "2,3,5,7");
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
                      EXPECT_TRUE(form.isModalShown()) << wrong;
                      EXPECT_TRUE(label(form, "lbStatus").contains("عدد نيست")) << wrong;
                      EXPECT_EQ(form.focusWidget()->objectName(), "ValueEdit");
                  }),
                  "");
}

TEST_F(RowCompanions, FilterJoinsRowsAndBindsAndFirst) {
    const QString statement = filtered([&](Form& form) {
        criterion(form, kAmount, "برابر", "5");
        key(form, Qt::Key_Insert);
        criterion(form, kName, "شامل", "12");
        key(form, Qt::Key_Insert);
        choose(form, "cmbJoin", "يا");
        criterion(form, kName, "شروع با", "حقوق");
        EXPECT_EQ(label(form, "lbSentence"),
                  "(«مبلغ» برابر 5 باشد و «نام حقوق و مزايا» شامل «12» باشد) يا "
                  "«نام حقوق و مزايا» با «حقوق» شروع شود.");
        QTRY_VERIFY(label(form, "lbStatus").startsWith("2 "));
        key(form, Qt::Key_Insert);  // one more, taken away again
        key(form, Qt::Key_Delete, Qt::ControlModifier);
        key(form, Qt::Key_Return);
    });
    EXPECT_EQ(statement,
              QStringLiteral("Select * From items Where [amount]=5 And [name] Like '%12%' Or [name] "
                             "Like 'حقوق%'"));
    EXPECT_EQ(codes(statement).join(u','), "1,5");
}

TEST_F(RowCompanions, FilterGivenUpRefusedAndAnsweredFromOutside) {
    EXPECT_EQ(filtered([](Form& form) {
                  type(form, "x");
                  key(form, Qt::Key_Escape);
                  EXPECT_FALSE(form.isModalShown());
              }),
              "");
    EXPECT_EQ(filtered([](Form& form) {
                  key(form, Qt::Key_Delete, Qt::ControlModifier);
                  form.component<QPushButton>("OkBtn")->click();
                  EXPECT_FALSE(form.isModalShown());
              }),
              "")
        << "no criteria, no restriction";
    EXPECT_EQ(filtered([](Form& form) {
                  form.setProperty("Answer", "Select 1");
                  form.setModalResult(widgets::mrOk);
              }),
              "Select 1");
    EXPECT_EQ(filtered([this](Form& form) {
                  key(form, Qt::Key_Return);
                  EXPECT_TRUE(label(form, "lbStatus").contains(kName)) << "a value is missing";
                  type(form, "nowhere");
                  key(form, Qt::Key_Return);
                  EXPECT_TRUE(form.isModalShown()) << "no row is left: said once";
                  server->setMonitor([](const QString&) { throw data::ServerError("out of order"); });
                  key(form, Qt::Key_Return);
                  EXPECT_TRUE(form.isModalShown());
                  EXPECT_TRUE(label(form, "lbStatus").contains("out of order"));
                  server->setMonitor({});
                  key(form, Qt::Key_Return);
                  EXPECT_FALSE(form.isModalShown());
              }),
              "Select * From items Where [name]='nowhere'");
}

TEST_F(RowCompanions, SearchGoesOnAndWraps) {
    const QString result = searched("old", [this](Form& form) {
        EXPECT_EQ(form.component<QLineEdit>("SearchEdit")->selectedText(), "old");
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
        key(form, Qt::Key_Escape);
        EXPECT_FALSE(form.isModalShown());
    });
    EXPECT_EQ(result, QStringLiteral("پیدانشد")) << "no separator of entries in it";
    EXPECT_EQ(searched("old", [](Form& form) { type(form, "new"); }), "old") << "nothing was searched for";
    EXPECT_EQ(grid.selectedColumn(), 1);
}

TEST_F(RowCompanions, SearchReadsNumbersAndMarksAsShown) {
    const auto found = [this](int column, const QString& text, bool begins = false) {
        rows.first();
        grid.selectColumn(column);
        searched({}, [&](Form& form) {
            if (begins)
                form.component<QAbstractButton>("chBegin")->click();
            form.component<QLineEdit>("SearchEdit")->setText(text);
            form.component<QPushButton>("FindNextBtn")->click();
        });
        return rows.recNo();
    };
    EXPECT_EQ(found(2, "1,234,5"), 2);
    EXPECT_EQ(found(2, "۲۳۴۵۶۷"), 2);
    EXPECT_EQ(found(2, "7.25"), 3);
    EXPECT_EQ(found(2, "5", true), 5);
    EXPECT_EQ(found(3, "ض"), 4);
    EXPECT_EQ(found(3, "✓"), 4);
    EXPECT_EQ(found(1, "مسكن ۱۲"), 5);
    EXPECT_EQ(found(1, "o'neil"), 4);
    rows.setRestriction("1=0");
    EXPECT_EQ(found(1, "حق"), 0);
}

TEST_F(RowCompanions, SearchTakesWhatIsBeingTypedAndRowsOutOfPlace) {
    rows.moveTo(1);
    rows.insert();
    rows.setValue("code", 9);
    rows.setValue("name", "ميان");
    searched({}, [this](Form& form) {
        type(form, "[a_b]");
        key(form, Qt::Key_Return);
        EXPECT_EQ(rows.text("name"), "[a_b]") << "the new row stands elsewhere than its order says";
        type(form, "ميان");
        key(form, Qt::Key_Return);
        EXPECT_EQ(rows.text("name"), "ميان");
    });
    EXPECT_EQ(rows.recordCount(), 8);

    QStringList messages;
    widgets::EventBoundary::setMessageSink([&](const QString& text) { messages.append(text); });
    rows.setValue("name", "ناتمام");
    rows.beforePost = [] { throw data::Refusal("نه"); };
    QString result;
    entry<companions::GridSearch>("RowSeek", "GridSearch")(&result, &grid, "code", "items", "old");
    EXPECT_EQ(messages, QStringList("نه"));
    EXPECT_EQ(result, "old");
    EXPECT_EQ(rows.state(), Dataset::State::Edit);
    rows.cancel();
}

TEST_F(RowCompanions, SortsBySeveralColumnsAndKeepsTheRow) {
    rows.moveTo(3);
    EXPECT_EQ(sorted([](Form& form) {
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
                  EXPECT_FALSE(form.isModalShown());
              }),
              "amount DESC;name");
    EXPECT_EQ(rows.indexFieldNames(), "amount DESC;name");
    EXPECT_EQ(rows.text("code"), "4");
    QStringList codes;
    for (int row = 0; row < rows.recordCount(); ++row)
        codes.append(rows.valueAt(row, 0).toString());
    EXPECT_EQ(codes.join(u','), "2,7,1,6,5,3,4");

    sorted([](Form& form) {
        form.component<QListWidget>("lsOrder")->setFocus();
        key(form, Qt::Key_Delete);
        key(form, Qt::Key_Escape);
        EXPECT_FALSE(form.isModalShown());
    });
    EXPECT_EQ(rows.indexFieldNames(), "amount DESC;name") << "given up";
}

// Pictures of the dialogs, for who wants to look at them.
TEST_F(RowCompanions, Pictures) {
    const QString folder = qEnvironmentVariable("KORVANTA_SHOTS");
    if (folder.isEmpty())
        GTEST_SKIP() << "KORVANTA_SHOTS names no folder";
    filtered([&](Form& form) {
        criterion(form, kAmount, "بزرگتر يا برابر", "1,234");
        key(form, Qt::Key_Insert);
        criterion(form, kName, "شامل", "حق");
        key(form, Qt::Key_Insert);
        choose(form, "cmbJoin", "يا");
        criterion(form, "ماليات", "علامت دارد", "");
        QTest::qWait(600);
        EXPECT_TRUE(form.grab().save(folder + "/sieve.png"));
    });
    searched("حق", [&](Form& form) {
        key(form, Qt::Key_Return);
        key(form, Qt::Key_Return);
        QTest::qWait(50);
        EXPECT_TRUE(form.grab().save(folder + "/seek.png"));
    });
    sorted([&](Form& form) {
        key(form, Qt::Key_Insert);
        QTest::qWait(50);
        EXPECT_TRUE(form.grab().save(folder + "/sort.png"));
    });
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    host::applyAppearance(application);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
