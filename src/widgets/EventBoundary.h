// The one place where exceptions of the module's work are caught. Every handler that Qt calls enters
// through run(); nothing is ever thrown through Qt's event loop.
#pragma once

#include <QObject>
#include <QString>
#include <exception>
#include <functional>

#include "Errors.h"

namespace widgets {

using ServerErrorHandler = std::function<void(const data::ServerError&)>;
// Shows a Persian sentence to the operator.
using MessageSink = std::function<void(const QString& text)>;

class EventBoundary {
public:
    // Runs a handler; true when it ran to its end. SilentAbort ends quietly, a Refusal is shown, a
    // ServerError goes to the handler of the form in front (Form::front), or is shown in general words.
    static bool run(const std::function<void()>& handler);

    // A form's own handler for server errors, for as long as the form lives.
    static void install(QObject* form, ServerErrorHandler handler);

    // Has the handler, in general words where it is none, tell of the refusal. That the line to the server is
    // cut is told by the line's handler wherever it is met.
    static void tell(const data::ServerError& error, const ServerErrorHandler& handler);
    // The refusal that is just being told; null outside.
    static const data::ServerError* told();

    static void setMessageSink(MessageSink sink);
    static void setLineHandler(ServerErrorHandler handler);
};

// A form's steps that do not need one another: each runs, whatever became of those before it. What they
// were refused is told once all is done that can be; one trouble that met several of them is told once.
class IndependentSteps {
public:
    explicit IndependentSteps(const QObject& form) : m_form(&form) {}

    // True when the step ran to its end. SilentAbort when the form went meanwhile: no further step is to
    // run.
    bool run(const std::function<void()>& step);
    // Tells what was refused since the last time, in its order, each through the event boundary, server
    // errors by the form's own handler where it has one; stops when the form goes.
    void tell();

private:
    const QObject* m_form;
    QList<std::pair<QByteArray, std::exception_ptr>> m_refused;  // the words, and what to throw
};

}  // namespace widgets
