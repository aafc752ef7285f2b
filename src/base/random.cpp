#include "base/random.h"

namespace {
// The classic linear congruential generator with 15-bit output.
uint32_t randomState = 1;
}

void seedRandom(uint32_t seed) { randomState = seed; }

int gameRand()
{
    randomState = randomState * 214013u + 2531011u;
    return static_cast<int>((randomState >> 16) & 0x7FFF);
}

float randomFloat(float lo, float hi)
{
    return static_cast<float>(lo + (hi - lo) * gameRand() / 32767.0);
}

int randomInt(int lo, int hi)
{
    int result;
    do {
        result = static_cast<int>(randomFloat(0, 1) * (hi - lo + 1) + lo);
    } while (result > hi);
    return result;
}
