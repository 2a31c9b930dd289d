// Plays each scenario in a process of its own, so that one that crashes or hangs is one that failed.
#pragma once

#include "Stage.h"

namespace play {

// How a scenario ended.
struct Ending {
    int failures = 0;
    int lastFailure = 0;            // the line of it
    int line = 0;                   // where it stood last
    int messages = 0, foreign = 0;  // that nothing has expected; of these, in no Persian words
    QString trouble;                // what ended the program in its place; empty when it came to its own end
    bool passed() const { return failures == 0 && trouble.isEmpty(); }
};

// Prints what failed. Called before any Qt application exists.
Ending playApart(const QString& file, const RunOptions& options);

}  // namespace play
