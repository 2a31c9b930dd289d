// The one place where exceptions of the module's work are caught. Every handler that Qt calls enters
// through run(); nothing is ever thrown through Qt's event loop.
#pragma once

#include <QObject>
#include <QString>
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

    static void setMessageSink(MessageSink sink);
};

}  // namespace widgets
