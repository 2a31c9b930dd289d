// Plays each scenario in a process of its own, so that one that crashes or hangs is one that failed.
#pragma once

#include "Stage.h"

namespace play {

// Prints what failed; true when the scenario passed. Called before any Qt application exists.
bool playApart(const QString& file, const RunOptions& options);

}  // namespace play
