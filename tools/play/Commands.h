// The commands of a scenario, by their first word.
#pragma once

namespace play {

class Player;
struct Line;

// Runs a line. Throws Failure where it is not understood, cannot be done, or an expectation does not hold.
void runCommand(Player& player, const Line& line);

}  // namespace play
