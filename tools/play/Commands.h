// The commands of a scenario, by their first word. Two things beyond the common grammar: `write FILE
// "text"` makes a file below the installation folder, and `context install NAME` begins the installation
// with the files of that folder, when one stands beside the scenario.
#pragma once

namespace play {

class Player;
struct Line;

// Runs a line. Throws Failure where it is not understood, cannot be done, or an expectation does not hold.
void runCommand(Player& player, const Line& line);

}  // namespace play
