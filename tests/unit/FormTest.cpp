#include <gtest/gtest.h>

#include <QApplication>

#include "Errors.h"
#include "EventBoundary.h"
#include "Form.h"

using widgets::EventBoundary;
using widgets::Form;

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
