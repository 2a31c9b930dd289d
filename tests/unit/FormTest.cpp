#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "Components.h"
#include "Errors.h"
#include "EventBoundary.h"
#include "Form.h"
#include "Progress.h"
#include "Step.h"

using widgets::EventBoundary;
using widgets::Form;
using widgets::Step;

namespace {

class FormTest : public testing::Test {
protected:
    void SetUp() override {
        EventBoundary::setMessageSink([this](const QString& text) { messages.append(text); });
        window.resize(400, 300);
        window.showForm();
    }
    void TearDown() override { EventBoundary::setMessageSink({}); }

    // Runs a step once the form's modal loop has begun.
    static void inside(Form& form, const std::function<void()>& step) {
        QObject::connect(&form, &Form::modalShown, &form, step, Qt::SingleShotConnection);
    }

    QStringList messages;
    Form window{QStringLiteral("TWindow")};
};

TEST_F(FormTest, APageFillsItsParentAndFollowsIt) {
    QWidget sheet(&window);
    sheet.resize(200, 100);
    sheet.show();
    Form page(QStringLiteral("TPage"), &sheet);
    EXPECT_FALSE(page.isVisible());
    QStringList events;
    page.onShow = [&] { events.append(page.isVisible() ? "shown visible" : "shown hidden"); };
    page.onActivate = [&] { events.append("activated"); };
    EXPECT_TRUE(page.showForm());
    EXPECT_EQ(page.geometry(), QRect(0, 0, 200, 100));
    sheet.resize(300, 150);
    EXPECT_EQ(page.size(), QSize(300, 150));
    EXPECT_TRUE(page.showForm());
    EXPECT_EQ(events.join(u','), "shown hidden,activated,shown visible,activated");
    EXPECT_EQ(Form::front(), &page);
    sheet.hide();
    EXPECT_EQ(Form::front(), &window) << "a page on a sheet that is not seen is not in front";
}

TEST_F(FormTest, AFormThatCannotShowStaysHidden) {
    Form page(QStringLiteral("TPage"), &window);
    page.onShow = [] { throw data::Refusal(QStringLiteral("نمي شود")); };
    EXPECT_FALSE(page.showForm());
    EXPECT_FALSE(page.isVisible());
    EXPECT_EQ(page.showModal(), widgets::mrCancel);
    EXPECT_FALSE(page.isModalShown());
    EXPECT_EQ(messages.size(), 2);
    EXPECT_EQ(Form::front(), &window);
}

TEST_F(FormTest, FocusGivenBeforeShowingIsKept) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Form page(QStringLiteral("TPage"), &window);
    QLineEdit first(&page), second(&page);
    page.onShow = [&] { second.setFocus(); };
    page.showForm();
    EXPECT_TRUE(second.hasFocus());
}

TEST_F(FormTest, ModalFormsNestAndReturnTheirResults) {
    Form outer(QStringLiteral("TOuter")), inner(QStringLiteral("TInner"));
    int innerResult = 0;
    inside(outer, [&] {
        EXPECT_EQ(Form::front(), &outer);
        inside(inner, [&] {
            EXPECT_EQ(Form::front(), &inner);
            inner.setModalResult(widgets::mrYes);
        });
        innerResult = inner.showModal();
        EXPECT_EQ(Form::front(), &outer);
        EXPECT_TRUE(outer.isModalShown());
        outer.closeForm();
    });
    EXPECT_EQ(outer.showModal(), widgets::mrCancel);
    EXPECT_EQ(innerResult, widgets::mrYes);
    EXPECT_EQ(Form::front(), &window);
    EXPECT_FALSE(outer.isVisible());
    inside(outer, [&] { outer.setModalResult(widgets::mrOk); });
    EXPECT_EQ(outer.showModal(), widgets::mrOk) << "a form can be shown again";
}

TEST_F(FormTest, TheFocusIsBackAsSoonAsADialogEnds) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QLineEdit first(&window), second(&window);
    first.show();
    second.show();
    second.setFocus();
    Form dialog(QStringLiteral("TDialog"));
    QPushButton button(&dialog);
    dialog.onShow = [&] { button.setFocus(); };
    inside(dialog, [&] { dialog.setModalResult(widgets::mrOk); });
    dialog.showModal();
    EXPECT_EQ(QApplication::focusWidget(), &second);
    dialog.onShow = [&] { dialog.setModalResult(widgets::mrYes); };
    EXPECT_EQ(dialog.showModal(), widgets::mrYes) << "a dialog may end before it is seen";
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FormTest, ARefusedCloseKeepsTheFormOpen) {
    Form dialog(QStringLiteral("TDialog"));
    int asked = 0;
    dialog.onClose = [&] {
        if (++asked == 1)
            throw data::Refusal(QStringLiteral("نه هنوز"));
        return asked > 2;
    };
    inside(dialog, [&] {
        dialog.setModalResult(widgets::mrOk);
        EXPECT_TRUE(dialog.isModalShown());
        EXPECT_FALSE(dialog.close());
        EXPECT_TRUE(dialog.isVisible());
        dialog.setModalResult(widgets::mrNo);
    });
    EXPECT_EQ(dialog.showModal(), widgets::mrNo);
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(messages.size(), 1);
}

TEST_F(FormTest, AModalFormMayGoAwayInItsLoop) {
    QPointer<Form> dialog = new Form(QStringLiteral("TDialog"));
    inside(*dialog, [&] { delete dialog; });
    EXPECT_EQ(dialog->showModal(), widgets::mrCancel);
    auto* freed = new Form(QStringLiteral("TFreed"));
    const QPointer<Form> watched(freed);
    freed->setFreeOnClose(true);
    freed->showForm();
    EXPECT_TRUE(freed->closeForm());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
}

TEST_F(FormTest, StepsEndWithTheirWindowAndNothingIsFreedUnderThem) {
    const QPointer<Form> page = new Form(QStringLiteral("TPage"), &window);
    Form dialog(QStringLiteral("TDialog")), message(QStringLiteral("TMessage"));
    QStringList told;
    const auto endPage = [&] {
        const widgets::Silence silence;
        EXPECT_FALSE(EventBoundary::run([&] { message.showModal(); })) << "nothing is asked in a silence";
        Step::endAll();
        page->retire();
        Step::afterwards([&] { told.append("sent"); });
    };
    inside(dialog, endPage);
    dialog.onClose = [] { return false; };
    EventBoundary::run([&] {
        try {
            dialog.showModal();
            told.append("went on");
        } catch (const data::SilentAbort&) {
            EXPECT_TRUE(page && page->isHidden());
            EXPECT_FALSE(dialog.isModalShown());
            EXPECT_THROW(message.showModal(), data::SilentAbort) << "nothing more is shown";
            told.append("gave up");
        }
    });
    EXPECT_EQ(told.join(u','), "gave up,sent");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(page.isNull());
    // The same under progress, within the statement that it counts.
    widgets::Progress::setPatience(0);
    QTimer::singleShot(0, [] { Step::endAll(); });
    EXPECT_FALSE(EventBoundary::run([&] {
        widgets::Progress progress(QStringLiteral("خواندن"), 2);
        progress.advance(1);
        told.append("went on");
    }));
    widgets::Progress::setPatience(500);
    EXPECT_EQ(told.size(), 2);
}

TEST_F(FormTest, EnterPressesTheFocusedButton) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QPushButton button(&window);
    button.show();
    button.setFocus();
    int pressed = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++pressed; });
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_A);
    EXPECT_EQ(pressed, 1);
}

TEST_F(FormTest, ErrorsGoWhereTheyBelong) {
    const auto fail = [] { throw data::ServerError(QStringLiteral("Violation of PRIMARY KEY")); };
    EXPECT_FALSE(EventBoundary::run(fail));
    EXPECT_TRUE(messages.value(0).contains(QStringLiteral("Violation of PRIMARY KEY")));
    QStringList windowErrors, pageErrors;
    EventBoundary::install(&window,
                           [&](const data::ServerError& error) { windowErrors.append(error.text()); });
    {
        Form page(QStringLiteral("TPage"), &window);
        page.showForm();
        EventBoundary::run(fail);
        EXPECT_EQ(windowErrors.size(), 1) << "a page without a handler leaves it to what stands behind";
        EventBoundary::install(&page,
                               [&](const data::ServerError& error) { pageErrors.append(error.text()); });
        EventBoundary::run(fail);
        window.bringToFront();
        EventBoundary::run(fail);
    }
    EventBoundary::run(fail);
    EXPECT_EQ(pageErrors.size(), 1);
    EXPECT_EQ(windowErrors.size(), 3) << "the handler of a page goes with it";
    messages.clear();
    EXPECT_FALSE(EventBoundary::run([] { throw data::SilentAbort(); }));
    EXPECT_TRUE(messages.isEmpty());
    EXPECT_FALSE(EventBoundary::run([] { throw std::bad_alloc(); }));
    EXPECT_EQ(messages.size(), 1);
    EventBoundary::install(&window, [](const data::ServerError&) { throw data::SilentAbort(); });
    EXPECT_FALSE(EventBoundary::run(fail)) << "a handler that fails throws no further";
}

TEST_F(FormTest, CaptionsReachTheBarAndCornersAreCut) {
    widgets::CaptionBar bar(&window);
    window.setCaption(QStringLiteral("   ثبت"));
    EXPECT_EQ(bar.caption(), QStringLiteral("   ثبت"));
    EXPECT_EQ(window.caption(), bar.caption());
    window.resize(500, 200);
    window.setRoundRegion(window.rect());
    EXPECT_FALSE(window.mask().contains(QPoint(0, 0)));
    EXPECT_FALSE(window.mask().contains(QPoint(499, 199)));
    EXPECT_TRUE(window.mask().contains(QPoint(499, 100)));
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
