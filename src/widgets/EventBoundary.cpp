#include "EventBoundary.h"

#include <QHash>
#include <QLoggingCategory>
#include <QPointer>
#include <QScopedValueRollback>

#include "Form.h"
#include "Step.h"

namespace widgets {
namespace {

QHash<const QObject*, ServerErrorHandler>& handlers() {
    static QHash<const QObject*, ServerErrorHandler> installed;
    return installed;
}

MessageSink& sink() {
    static MessageSink installed;
    return installed;
}

void show(const QString& text) {
    if (sink())
        sink()(text);
    else
        qWarning("%s", qUtf8Printable(text));
}

ServerErrorHandler& lineHandler() {
    static ServerErrorHandler installed;
    return installed;
}

const data::ServerError* toldNow = nullptr;

void handleServerError(const data::ServerError& error) {
    ServerErrorHandler handler;
    for (const Form* form : Form::frontToBack())
        if ((handler = handlers().value(form)))
            break;
    EventBoundary::tell(error, handler);
}

void handleCurrentException() {
    try {
        throw;
    } catch (const data::SilentAbort&) {
        // All there is to say has been said.
    } catch (const data::Refusal& refusal) {
        show(refusal.text());
    } catch (const data::ServerError& error) {
        handleServerError(error);
    } catch (const std::exception& error) {
        show(QStringLiteral("اشکالي پيش بيني نشده رخ داد و اين کار انجام نشد.\n") +
             QString::fromUtf8(error.what()));
    }
}

}  // namespace

bool EventBoundary::run(const std::function<void()>& handler) {
    const Step step;
    try {
        handler();
        return true;
    } catch (...) {
        try {
            handleCurrentException();
        } catch (const data::SilentAbort&) {
            // The window that the message was to be shown over has ended.
        } catch (...) {
            // The message itself failed: the first error is the one that counts, and it has been met.
            qWarning("an error could not be shown");
        }
    }
    return false;
}

void EventBoundary::tell(const data::ServerError& error, const ServerErrorHandler& handler) {
    const QScopedValueRollback telling(toldNow, &error);
    const ServerErrorHandler own = handler;  // may close the form that installed it
    const bool ofLine = error.fault() == data::Fault::LineLost || error.fault() == data::Fault::CommitUnknown;
    if (ofLine && lineHandler())
        lineHandler()(error);
    else if (error.fault() == data::Fault::GivenUp)
        show(QStringLiteral("از اين کار صرف نظر شد و چيزي از آن ثبت نشد."));
    else if (error.fault() == data::Fault::TimedOut)
        show(QStringLiteral("سرور در زمان تعيين شده پاسخ نداد و چيزي ثبت نشد."));
    else if (own)
        own(error);
    else
        show(QStringLiteral("بانک اطلاعات اين کار را نپذيرفت و داده ها تغييري نکردند.\n") + error.text());
}

const data::ServerError* EventBoundary::told() {
    return toldNow;
}

void EventBoundary::setLineHandler(ServerErrorHandler handler) {
    lineHandler() = std::move(handler);
}

void EventBoundary::install(QObject* form, ServerErrorHandler handler) {
    if (!handlers().contains(form))
        QObject::connect(form, &QObject::destroyed, [](QObject* gone) { handlers().remove(gone); });
    handlers()[form] = std::move(handler);
}

bool IndependentSteps::run(const std::function<void()>& step) {
    const QPointer<const QObject> alive(m_form);
    try {
        step();
        if (!alive)
            throw data::SilentAbort();
        return true;
    } catch (const std::exception& error) {
        if (!alive)
            throw data::SilentAbort();
        const QByteArray words = error.what();
        if (std::none_of(m_refused.begin(), m_refused.end(),
                         [&](const auto& known) { return known.first == words; }))
            m_refused.append({words, std::current_exception()});
        return false;
    }
}

void IndependentSteps::tell() {
    const QPointer<const QObject> alive(m_form);
    for (const auto& refused : std::exchange(m_refused, {})) {
        const ServerErrorHandler handler = handlers().value(alive);
        EventBoundary::run([&] {
            try {
                if (alive)
                    std::rethrow_exception(refused.second);
            } catch (const data::ServerError& error) {
                if (!handler)
                    throw;
                EventBoundary::tell(error, handler);
            }
        });
    }
}

void EventBoundary::setMessageSink(MessageSink newSink) {
    sink() = std::move(newSink);
}

}  // namespace widgets
