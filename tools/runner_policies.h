// The players of the headless runner: key presses (left side) and clicks
// (right side of a two-player game) chosen each round from what a person
// would see on the field and the panel.
//
//   idle     the one cannon of the start; nothing is pressed.
//   cannons  a new player: presses 3 and nothing else, so the upgrades come
//            as the default split makes them and the temporary ones are
//            never used.
//   simple   three cannons, and every temporary upgrade used as soon as it
//            comes.
//   smart    plays the economy: one cannon while the field is calm, since
//            fewer cannons make more upgrades, and three as soon as one
//            wouldn't clear the field before an enemy reaches the line; four
//            fifths of the upgrades permanent; temporary ones kept for a
//            crowded field (a boost goes at once).
#pragma once

#include <cstdint>

class Player;

enum Policy { idlePolicy, cannonsPolicy, simplePolicy, smartPolicy };

// The name on the command line and in the output; -1 / null for no such.
int policyFromName(const char* name);
const char* policyName(Policy policy);

// What a policy remembers between rounds.
struct PolicyMemory {
    uint32_t lastCannonChange = 0;  // round of the last change of the row
    uint32_t calmSince = 0;         // first round of the present calm
};

// Sets the keys of the left side (or of the one player) for this round.
void pressPolicyKeys(Policy policy, const Player& player, uint32_t round, PolicyMemory& memory);

// The right side of a two-player game plays the simple policy by mouse,
// one click a round at most.
void clickSimplePolicy(const Player& player, uint32_t round);
