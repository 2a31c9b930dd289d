// T-SQL of a scenario, on the module's connection.
#pragma once

namespace play {

class Player;
struct Statement;

// Throws Failure when rows or error are not those expected.
void runStatement(Player& player, const Statement& statement);

}  // namespace play
