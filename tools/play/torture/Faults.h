// The acts under faults: a process killed, a disk that fails, a line that is cut. After each the company is
// sound and old or new, the page has said so in Persian, and the act can be done again.
#pragma once

#include "Stage.h"

namespace play {

// What was tried and what fell.
struct Toll {
    int tried = 0, fell = 0;
};

// Each act whose name holds `which`, so many times, killed at a random moment of it.
Toll killed(const RunOptions& options, const QString& which, int rounds, unsigned seed);
// Each with each operation of a kind failing, the first `most` of them.
Toll failingDisk(const RunOptions& options, const QString& which, int most);
// Each with the line cut at each of its statements.
Toll cutLines(const RunOptions& options, const QString& which);

}  // namespace play
