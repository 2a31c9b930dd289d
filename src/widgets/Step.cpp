#include "Step.h"

#include <QDialog>
#include <QPointer>

#include "Errors.h"
#include "EventBoundary.h"

namespace widgets {
namespace {

struct State {
    quint64 windowsEnded = 0;
    quint64 number = 0;
    int depth = 0;
    int silences = 0;
    Step* step = nullptr;    // that runs now
    Pause* pause = nullptr;  // the newest
    QList<QPointer<QObject>> retired;
};

State& state() {
    static State all;
    return all;
}

}  // namespace

Step::Step() : m_outer(state().step), m_windows(m_outer ? m_outer->m_windows : state().windowsEnded) {
    if (!m_outer)
        ++state().number;
    state().step = this;
    ++state().depth;
}

Step::~Step() {
    State& all = state();
    all.step = m_outer;
    --all.depth;
    for (const auto& what : m_afterwards)
        EventBoundary::run(what);
    if (all.depth > 0)
        return;
    // Qt may still be busy with the event of one of them.
    for (const QPointer<QObject>& object : std::exchange(all.retired, {}))
        if (object)
            object->deleteLater();
}

quint64 Step::number() {
    return state().number;
}

void Step::endAll() {
    State& all = state();
    ++all.windowsEnded;
    for (Step* step = all.step; step; step = step->m_outer)
        step->m_windows = all.windowsEnded;
    for (Pause* pause = all.pause; pause; pause = pause->m_outer)
        if (pause->m_giveUp)
            pause->m_giveUp();
}

void Step::goOn() {
    if (state().step && state().step->m_windows != state().windowsEnded)
        throw data::SilentAbort();
}

bool Step::paused() {
    return state().pause && state().pause->m_step;
}

bool Step::mayPause() {
    return state().step && state().silences == 0;
}

void Step::afterwards(std::function<void()> what) {
    if (!paused())
        return what();
    Step* step = state().pause->m_step;
    while (step->m_outer)
        step = step->m_outer;
    step->m_afterwards.append(std::move(what));
}

void Step::retire(QObject* object) {
    if (state().depth == 0)
        delete object;
    else
        state().retired.append(object);
}

Pause::Pause(std::function<void()> giveUp)
    : m_step(state().step), m_outer(state().pause), m_giveUp(std::move(giveUp)) {
    Step::goOn();
    if (state().silences > 0)
        throw data::SilentAbort();
    state().step = nullptr;
    state().pause = this;
}

Pause::~Pause() {
    state().step = m_step;
    state().pause = m_outer;
}

Silence::Silence() {
    ++state().silences;
}

Silence::~Silence() {
    --state().silences;
}

int runDialog(QDialog& dialog) {
    int result = QDialog::Rejected;
    {
        const Pause pause([&dialog] { dialog.reject(); });
        result = dialog.exec();
    }
    Step::goOn();
    return result;
}

}  // namespace widgets
