// The game's own random generator: 15-bit values (0 to 32767), the same on
// every system, so that a seeded scripted game replays identically anywhere.
// All simulation draws go through randomFloat and randomInt.
#pragma once

#include <cstdint>

constexpr int GAME_RAND_MAX = 32767;

void seedRandom(uint32_t seed);
int gameRand();  // 0 to GAME_RAND_MAX

// lo + (hi - lo) * gameRand() / 32767.0
float randomFloat(float lo, float hi);
// Inclusive of both ends; draws again while the result exceeds hi.
int randomInt(int lo, int hi);
