// What an operator does that changes much at once: each is one transaction, and leaves the company as it was
// or as it is meant to be, whatever befalls it.
#pragma once

#include <QString>
#include <QStringList>

namespace play {

struct Act {
    QString name;
    QString stored;      // statements, before the window is shown; empty for none
    QStringList before;  // lines of a scenario; what they store is stored when the act begins
    QString line;        // the act
    bool repeats =
        false;  // what stands before it stores nothing: all of it can be done on what a kill has left
};

const QList<Act>& acts();

// A scenario that does it; `between` stands before the act, which is done so many times.
struct ActScenario {
    QString text;
    int line = 0;  // of the act, the first time
};
ActScenario scenarioOf(const Act& act, const QStringList& between = {}, int times = 1);

}  // namespace play
