// The game's own random generator: 15-bit values (0 to 32767), the same on
// every system, so that a seeded scripted game replays identically anywhere.
// All simulation draws go through randomFloat and randomInt.
//
// A replay repeats a game from the generator's state at its start, so the
// simulation's generator must see exactly the simulation's draws. Draws that
// only change what is heard or seen, and may come more or less often on
// another machine (a sound's variant, played only while real time allows),
// go to a second generator of the same kind, cosmeticRandom().
#pragma once

#include <cstdint>

constexpr int GAME_RAND_MAX = 32767;

// The classic linear congruential generator with 15-bit output.
class RandomGenerator {
public:
    explicit RandomGenerator(uint32_t seed = 1) : state(seed) {}
    void seed(uint32_t seed) { state = seed; }
    uint32_t currentState() const { return state; }

    int next();  // 0 to GAME_RAND_MAX
    // lo + (hi - lo) * next() / 32767.0
    float nextFloat(float lo, float hi);
    // Inclusive of both ends; draws again while the result exceeds hi.
    int nextInt(int lo, int hi);

private:
    uint32_t state;
};

// The simulation's generator.
void seedRandom(uint32_t seed);  // also sets the state a replay recorded
uint32_t randomState();
int gameRand();
float randomFloat(float lo, float hi);
int randomInt(int lo, int hi);

// The generator of draws that never reach the simulation.
RandomGenerator& cosmeticRandom();
