// What must hold: the words behind `expect`.
#pragma once

namespace play {

class Arguments;
class Player;

// Throws Failure ("expected … but found …") where it does not hold.
void expect(Player& player, Arguments& arguments);

}  // namespace play
