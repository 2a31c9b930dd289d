// What the module does for one event, or for one call of the host, is a step. A dialog or progress in its
// midst lets further events run, and in them the window that the step works for may end. Then nothing is
// freed until the last step has ended, no step shows anything any more, and each gives itself up
// (data::SilentAbort) as soon as it goes on.
#pragma once

#include <QList>
#include <functional>

class QDialog;
class QObject;

namespace widgets {

class Step {
public:
    Step();
    ~Step();
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;

    // The window ends: what stands open in the midst of steps is given up, the newest first, and all steps
    // but those that this call belongs to are over.
    static void endAll();
    // After events have run. Throws data::SilentAbort where the step's window went in them.
    static void goOn();
    // Counts the steps that no other one called; what one key or click does has one number.
    static quint64 number();
    // Whether events run in the midst of a step.
    static bool paused();
    // Whether one is under way in whose midst events may run: not in a Silence.
    static bool mayPause();
    // Does it when the step whose midst this is has ended; now where there is none.
    static void afterwards(std::function<void()> what);
    // Deletes the object once no step is under way; now where none is. The object may be null.
    static void retire(QObject* object);

private:
    friend class Pause;

    Step* m_outer;      // the one that called this one, without events in between
    quint64 m_windows;  // ended before it began
    QList<std::function<void()>> m_afterwards;
};

// Around events in the midst of a step: those who are called in them begin steps of their own.
class Pause {
public:
    // `giveUp` ends what the events wait for. Throws data::SilentAbort where the step's window went already,
    // and in a Silence.
    explicit Pause(std::function<void()> giveUp = {});
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

private:
    friend class Step;

    Step* const m_step;
    Pause* const m_outer;
    const std::function<void()> m_giveUp;
};

// While it stands nobody is asked or told anything: what wants to is given up.
class Silence {
public:
    Silence();
    ~Silence();
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
};

// QDialog::exec in the midst of a step; rejected when its window ends, and SilentAbort then.
int runDialog(QDialog& dialog);

}  // namespace widgets
