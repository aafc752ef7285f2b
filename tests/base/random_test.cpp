// The game's own generator: the classic one, with 15-bit values, so that a
// seeded game replays the same everywhere.
#include <gtest/gtest.h>

#include "base/numbers.h"
#include "base/random.h"

TEST(GameRandom, ClassicSequenceAndRandomIntCoversBothEnds)
{
    // state = state * 214013 + 2531011, value = (state >> 16) & 0x7FFF
    seedRandom(1);
    EXPECT_EQ(gameRand(), 41);
    EXPECT_EQ(gameRand(), 18467);
    EXPECT_EQ(gameRand(), 6334);
    // A draw of exactly 32767 gives hi + 1 and is drawn again, so each value is about a third.
    int counts[3] = {0, 0, 0};
    for (int i = 0; i < 30000; ++i) {
        int value = randomInt(0, 2);
        ASSERT_TRUE(value >= 0 && value <= 2) << value;
        ++counts[value];
    }
    for (int count : counts) EXPECT_NEAR(count, 10000, 600);
    EXPECT_EQ(randomInt(5, 5), 5);
    seedRandom(1);
    EXPECT_FLOAT_EQ(randomFloat(-5, 5), -5 + 10 * 41 / 32767.0f);
    EXPECT_FLOAT_EQ(mapRange(500, 300, 0, 0.8f, 100), 1.6f) << "not clamped";
}
