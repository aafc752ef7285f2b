#include "base/random.h"

namespace {
RandomGenerator simulationRandom;
RandomGenerator cosmeticGenerator;
}

int RandomGenerator::next()
{
    state = state * 214013u + 2531011u;
    return static_cast<int>((state >> 16) & 0x7FFF);
}

float RandomGenerator::nextFloat(float lo, float hi)
{
    return static_cast<float>(lo + (hi - lo) * next() / 32767.0);
}

int RandomGenerator::nextInt(int lo, int hi)
{
    int result;
    do {
        result = static_cast<int>(nextFloat(0, 1) * (hi - lo + 1) + lo);
    } while (result > hi);
    return result;
}

void seedRandom(uint32_t seed) { simulationRandom.seed(seed); }
uint32_t randomState() { return simulationRandom.currentState(); }
int gameRand() { return simulationRandom.next(); }
float randomFloat(float lo, float hi) { return simulationRandom.nextFloat(lo, hi); }
int randomInt(int lo, int hi) { return simulationRandom.nextInt(lo, hi); }

RandomGenerator& cosmeticRandom() { return cosmeticGenerator; }
