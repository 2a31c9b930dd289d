#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>

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

}  // namespace
