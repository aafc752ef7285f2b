#include <gtest/gtest.h>

#include "base/numbers.h"
#include "base/random.h"

TEST(GameRandom, FollowsTheClassicGeneratorWithFifteenBitValues)
{
    // state = state * 214013 + 2531011, value = (state >> 16) & 0x7FFF
    seedRandom(1);
    EXPECT_EQ(gameRand(), 41);
    EXPECT_EQ(gameRand(), 18467);
    EXPECT_EQ(gameRand(), 6334);
    seedRandom(12345);
    for (int i = 0; i < 100000; ++i) {
        int value = gameRand();
        ASSERT_GE(value, 0);
        ASSERT_LE(value, 32767);
    }
}

TEST(GameRandom, SameSeedReplaysTheSameDraws)
{
    seedRandom(777);
    float a = randomFloat(-5, 5);
    int b = randomInt(0, 19);
    seedRandom(777);
    EXPECT_EQ(randomFloat(-5, 5), a);
    EXPECT_EQ(randomInt(0, 19), b);
}

TEST(GameRandom, RandomIntCoversBothEndsAndNothingElse)
{
    seedRandom(4);
    int counts[3] = {0, 0, 0};
    for (int i = 0; i < 30000; ++i) {
        int value = randomInt(0, 2);
        ASSERT_GE(value, 0);
        ASSERT_LE(value, 2);
        ++counts[value];
    }
    // A draw of exactly 32767 gives hi + 1 and is drawn again, so each end is
    // about a third.
    for (int count : counts) EXPECT_NEAR(count, 10000, 600);
    EXPECT_EQ(randomInt(5, 5), 5);
}

TEST(Numbers, MapRangeIsTheUnclampedLinearMap)
{
    EXPECT_FLOAT_EQ(mapRange(500, 300, 0, 0.8f, 500), 0.0f);
    EXPECT_FLOAT_EQ(mapRange(500, 300, 0, 0.8f, 300), 0.8f);
    EXPECT_FLOAT_EQ(mapRange(500, 300, 0, 0.8f, 100), 1.6f);
    EXPECT_FLOAT_EQ(clampFloat(mapRange(500, 300, 0, 0.8f, 100), 0, 0.8f), 0.8f);
    EXPECT_EQ(clampInt(-4, 0, 10), 0);
    EXPECT_FLOAT_EQ(distance(0, 0, 3, 4), 5.0f);
    EXPECT_FLOAT_EQ(angleTo(0, 0, 0, 1), 1.5707964f);
}
